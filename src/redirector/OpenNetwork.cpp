#include "redirector/OpenNetwork.h"

#include "discovery/ComputerFinder.h"
#include "platform/IniReader.h"
#include "redirector/FolderProvider.h"
#include "redirector/SmbProvider.h"
#include "runtime/Names.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"

#include <QCoreApplication>
#include <QDir>

#include <algorithm>

namespace netrove {
namespace {

constexpr QLatin1String FileName("network.ini");

bool IsName(const QString& text) {
    return IsNodeName(text) && text.size() <= NameLimits::RemoteName;
}

/// Takes "ADDRESS", "ADDRESS:PORT" or "[IPv6]:PORT" apart; false if the text is none of them.
bool TakeAddress(const QString& text, SmbHost& host) {
    QString port;
    if (text.startsWith(u'[')) {
        const qsizetype end = text.indexOf(u']');
        if (end < 0 || (end + 1 < text.size() && text[end + 1] != u':'))
            return false;
        host.address = text.mid(1, end - 1);
        port = end + 1 < text.size() ? text.mid(end + 2) : u"445"_s;
    } else {
        if (text.count(u':') > 1)
            return false;
        host.address = text.section(u':', 0, 0);
        port = text.contains(u':') ? text.section(u':', 1) : u"445"_s;
    }
    bool isNumber = false;
    host.port = port.toUShort(&isNumber);
    return isNumber && host.port != 0 && !host.address.isEmpty();
}

std::unique_ptr<SmbProvider> MakeSmbProvider(const QString& name, SmbComputers computers,
                                             const std::shared_ptr<Logons>& logons) {
    return std::make_unique<SmbProvider>(name, std::move(computers), SmbPool::DefaultHelper(),
                                         SmbLimits(), logons);
}

/// Makes the providers of one file and notes what is wrong with it.
class ProviderReader {
    Q_DECLARE_TR_FUNCTIONS(OpenNetwork)

public:
    ProviderReader(const IniReader& ini, QString folder, std::shared_ptr<Logons> logons)
        : ini_(ini)
        , folder_(std::move(folder))
        , logons_(std::move(logons))
        , problems_(ini.Problems()) {}

    void Read() {
        for (const IniSection& section : ini_.Sections()) {
            if (auto provider = ReadSection(section))
                providers_.push_back(std::move(provider));
        }
    }

    [[nodiscard]] std::vector<std::unique_ptr<NetworkProvider>> TakeProviders() {
        return std::move(providers_);
    }
    [[nodiscard]] const QStringList& Problems() const { return problems_; }

private:
    void Note(int line, const QString& what) { problems_ += ini_.Problem(line, what); }

    [[nodiscard]] std::unique_ptr<NetworkProvider> ReadSection(const IniSection& section) {
        if (!IsName(section.name)) {
            Note(section.line, tr("\"%1\" can't be a network's name").arg(section.name));
            return nullptr;
        }
        if (ini_.Find(section.name) != &section) {
            Note(section.line, tr("there is a network \"%1\" already").arg(section.name));
            return nullptr;
        }
        const QString type = section.Value(u"Type");
        if (EqualText(type, u"smb"))
            return MakeSmbProvider(section.name, ReadComputers(section), logons_);
        if (EqualText(type, u"folder"))
            return ReadFolder(section);
        const IniEntry* entry = section.Find(u"Type");
        Note(entry != nullptr ? entry->line : section.line,
             tr("\"%1\" needs Type=smb or Type=folder").arg(section.name));
        return nullptr;
    }

    [[nodiscard]] std::unique_ptr<NetworkProvider> ReadFolder(const IniSection& section) {
        NoteUnknownKeys(section, [](const QString& key) { return EqualText(key, u"Path"); });
        const QString path = section.Value(u"Path");
        if (path.isEmpty()) {
            Note(section.line, tr("\"%1\" needs Path=").arg(section.name));
            return nullptr;
        }
        auto provider =
            std::make_unique<FolderProvider>(section.name, QDir(folder_).absoluteFilePath(path));
        problems_ += provider->Problems();
        return provider;
    }

    [[nodiscard]] SmbComputers ReadComputers(const IniSection& section) {
        const auto isComputer = [](const QString& key) {
            return key.startsWith("Computer"_L1, Qt::CaseInsensitive);
        };
        NoteUnknownKeys(section, [&](const QString& key) {
            return isComputer(key) || EqualText(key, u"Find");
        });
        std::vector<SmbHost> hosts;
        for (const IniEntry& entry : section.entries) {
            if (!isComputer(entry.key))
                continue;
            if (auto host = ReadHost(entry))
                hosts.push_back(std::move(*host));
        }
        return {hosts, Finds(section) ? std::make_unique<ComputerFinder>() : nullptr};
    }

    [[nodiscard]] bool Finds(const IniSection& section) {
        const IniEntry* entry = section.Find(u"Find");
        if (entry == nullptr || EqualText(entry->value, u"Yes"))
            return true;
        if (!EqualText(entry->value, u"No"))
            Note(entry->line, tr("Find needs Yes or No"));
        return false;
    }

    [[nodiscard]] std::optional<SmbHost> ReadHost(const IniEntry& entry) {
        const QStringList parts = entry.value.split(u'|');
        SmbHost host;
        host.name = Trim(parts.value(0));
        while (host.name.startsWith(u'\\'))
            host.name.remove(0, 1);
        if (const QString workgroup = Trim(parts.value(1)); !workgroup.isEmpty())
            host.workgroup = workgroup;
        const QString address = Trim(parts.value(2));
        if (parts.size() > 3 || !IsName(host.name) ||
            (host.workgroup && !IsName(*host.workgroup))) {
            Note(entry.line, tr("%1 isn't NAME|WORKGROUP|ADDRESS:PORT").arg(entry.key));
            return std::nullopt;
        }
        if (!address.isEmpty() && !TakeAddress(address, host)) {
            Note(entry.line, tr("\"%1\" isn't ADDRESS:PORT or [ADDRESS]:PORT, with a "
                                "port from 1 to 65535")
                                 .arg(address));
            return std::nullopt;
        }
        return host;
    }

    template <typename IsKnown>
    void NoteUnknownKeys(const IniSection& section, const IsKnown& isKnown) {
        for (const IniEntry& entry : section.entries) {
            if (!EqualText(entry.key, u"Type") && !isKnown(entry.key))
                Note(entry.line, tr("%1 has no meaning here").arg(entry.key));
        }
    }

    const IniReader& ini_;
    QString folder_;
    std::shared_ptr<Logons> logons_;
    QStringList problems_;
    std::vector<std::unique_ptr<NetworkProvider>> providers_;
};

OpenedNetwork LocalAreaNetworkAlone(const QStringList& problems,
                                    const std::shared_ptr<Logons>& logons) {
    std::vector<std::unique_ptr<NetworkProvider>> providers;
    providers.push_back(MakeSmbProvider(NetEnum::LocalAreaNetwork,
                                        {{}, std::make_unique<ComputerFinder>()}, logons));
    return {.network = std::make_unique<Network>(std::move(providers)), .problems = problems};
}

} // namespace

OpenedNetwork OpenNetwork(const QString& applicationFolder, const std::shared_ptr<Logons>& logons) {
    const QString path = QDir(applicationFolder).filePath(FileName);
    try {
        const IniReader ini = IniReader::FromFile(path);
        if (ini.Sections().empty())
            return LocalAreaNetworkAlone(
                ini.Problems() + QStringList(ProviderReader::tr("network.ini names no network")),
                logons);
        ProviderReader reader(ini, applicationFolder, logons);
        reader.Read();
        return {.network = std::make_unique<Network>(reader.TakeProviders()),
                .problems = reader.Problems()};
    } catch (const RunTimeError& error) {
        QStringList problems;
        if (error.Number() != static_cast<int>(ErrorNumber::FileNotFound))
            problems += ProviderReader::tr("%1 can't be read").arg(path);
        return LocalAreaNetworkAlone(problems, logons);
    }
}

} // namespace netrove
