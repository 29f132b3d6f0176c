"""A private desktop for a script or a test: X server, session bus, window manager, and the input of
a user."""

import os
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402


def wait_for(what, condition, seconds=20.0):
    """Waits until condition() returns something true, and returns that."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            value = condition()
        except GLib.Error:  # an object disappeared while being asked
            value = None
        if value:
            return value
        time.sleep(0.02)
    raise AssertionError(f"waited {seconds} s in vain for {what}")


class Desktop:
    """Started on entry; everything it started is ended on exit, by its process id."""

    def __init__(self, screenshots, screen="1280x900x24"):
        self.screenshots = screenshots
        self.screen = screen
        self.processes = []
        self.environment = dict(os.environ, QT_QPA_PLATFORM="xcb", LC_ALL="C.UTF-8",
                                LANGUAGE="en", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.environment.pop("WAYLAND_DISPLAY", None)

    def __enter__(self):
        os.makedirs(self.screenshots, exist_ok=True)
        read_end, write_end = os.pipe()
        self.start(["Xvfb", "-displayfd", str(write_end), "-screen", "0", self.screen,
                    "-nolisten", "tcp"], pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            self.environment["DISPLAY"] = ":" + pipe.readline().strip()
        bus = self.start(["dbus-daemon", "--session", "--nofork", "--print-address"],
                         stdout=subprocess.PIPE, text=True)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
        os.environ.update(self.environment)
        self.start(["openbox"])
        # The window manager can miss a window that appears while it starts.
        wait_for("the window manager", lambda: "window id" in self.tool(
            "xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
        for process in reversed(self.processes):
            try:
                process.wait(timeout=5)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()

    def start(self, command, **options):
        options.setdefault("stderr", subprocess.DEVNULL)
        process = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL,
                                   **options)
        self.processes.append(process)
        return process

    def tool(self, *command):
        return subprocess.run(command, env=self.environment, check=True, text=True,
                              stdout=subprocess.PIPE).stdout

    def screenshot(self, name):
        self.tool("import", "-silent", "-window", "root",
                  os.path.join(self.screenshots, name + ".png"))

    def keys(self, *keys):
        self.tool("xdotool", "key", "--clearmodifiers", *keys)

    def type(self, text):
        self.tool("xdotool", "type", "--clearmodifiers", "--delay", "5", text)

    def click(self, x, y, button=1):
        self.tool("xdotool", "mousemove", str(x), str(y), "click", str(button))

    def windows(self, title):
        """The X windows with exactly this title."""
        return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"],
                              env=self.environment, text=True, stdout=subprocess.PIPE,
                              check=False).stdout.split()

    def window(self, title, seconds=60):
        """The last X window with exactly this title, once it exists."""
        return wait_for(f"a window {title}", lambda: self.windows(title), seconds)[-1]


def descendants(node):
    for index in range(node.get_child_count()):
        child = node.get_child_at_index(index)
        if child is not None:
            yield child
            yield from descendants(child)


class Program:
    """What an assistive tool sees of a running program."""

    def __init__(self, name):
        self.root = wait_for(f"the program {name}", lambda: self._application(name), 60)

    @staticmethod
    def _application(name):
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application is not None and application.get_name() == name:
                return application
        return None

    def find(self, role, name):
        """The control of this role whose accessible name begins with `name`."""
        def look():
            for node in descendants(self.root):
                if node.get_role_name() == role and (node.get_name() or "").startswith(name):
                    return node
            return None
        return wait_for(f"{role} {name!r}", look)

    def centre(self, node):
        box = node.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        return box.x + box.width // 2, box.y + box.height // 2
