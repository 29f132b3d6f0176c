"""What makes a computer known on the network, beside its SMB server: see each for what it costs."""

import os
import shutil
import uuid

BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>unix:path=/run/dbus/system_bus_socket</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow user="*"/>
    <allow own="*"/>
    <allow send_destination="*"/>
    <allow receive_sender="*"/>
  </policy>
</busconfig>
"""
AVAHI = """[server]
host-name={name}
allow-interfaces=eth0
[publish]
publish-workstation=no
[rlimits]
"""
MODEL = "Barn door"
SMB_SERVICE = """<service-group>
  <name>{name}</name>
  <service><type>_smb._tcp</type><port>{port}</port></service>
  <service><type>_device-info._tcp</type><port>0</port>
    <txt-record>model={model}</txt-record></service>
</service-group>
"""


def missing():
    return [tool for tool in ("wsdd", "nmbd", "avahi-daemon", "dbus-daemon")
            if not shutil.which(tool)]


def start_wsdd(machine, workgroup, domain=""):
    """WS-Discovery, as Windows does it."""
    machine.start("wsdd", "--interface", "eth0", "--uuid", str(uuid.uuid4()),
                  "--preserve-case", "--hostname", machine.name,
                  *(("--domain", domain) if domain else ("--workgroup", workgroup)))


def start_avahi(machine, service=None, port=0):
    """DNS-SD, with a D-Bus of its own; with a service, the computer announces an SMB server."""
    bus = machine.write("bus.conf", BUS)
    configuration = machine.write("avahi.conf", AVAHI.format(name=machine.name.lower()))
    services = os.path.join(machine.folder, "services")
    os.makedirs(services)
    if service:
        machine.write("services/smb.service",
                      SMB_SERVICE.format(name=service, port=port, model=MODEL))
    machine.run("mount", "--bind", services, "/etc/avahi/services")
    machine.run("mkdir", "-p", "/run/dbus")
    machine.run("dbus-daemon", f"--config-file={bus}", "--fork", "--nopidfile")
    machine.start("avahi-daemon", "--no-drop-root", "--no-chroot", "--file", configuration)
