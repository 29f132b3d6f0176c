#pragma once

#include "controls/ListView.h"
#include "platform/ProfileFile.h"
#include "platform/SystemInformation.h"
#include "settings/SettingsTable.h"
#include "storage/WindowPlacement.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QWidget>

#include <functional>

namespace netrove {

/// The settings file's path: in the application folder, under the executable's name. Executables
/// have no extension here: what stands behind a dot belongs to the name, as in "netrove-2.1".
[[nodiscard]] QString
IniFileName(const QString& applicationFolder,
            const QString& executable = QCoreApplication::applicationFilePath());

/// The folder for downloads that the program has by itself, with its closing separator.
[[nodiscard]] QString DownloadsFolder(const QString& applicationFolder);

/// All that the program remembers between two runs, but for saved results: moves it from the
/// settings file to the settings and the window's controls, and back. docs/settings.md has every
/// key.
class SettingsFile {
    Q_DECLARE_TR_FUNCTIONS(SettingsFile)

public:
    struct Controls {
        QWidget& window;
        QComboBox& LstSearchFor;
        QCheckBox& chkRecurse;
        ListView& lvwResults;
        ListView& lvwDownloads;
    };
    struct Services {
        Settings& settings;
        const SystemInformation& system;
        QString applicationFolder; ///< without a closing separator
        /// Writes the keys of the current skin, if there is one.
        std::function<void()> SaveSkinXML = {};
    };

    /// `path` is the settings file's; it needn't exist.
    SettingsFile(const Controls& controls, const Services& services, const QString& path);

    /// Fills settings and controls, and shows the window on the way. To be called once, before the
    /// window has been shown. Raises ErrorNumber::Overflow for a number too large for its setting
    /// and ErrorNumber::TypeMismatch for a Boolean that is none; what stands behind that key keeps
    /// the values that it had.
    void LoadIni();

    /// To be called before the window is hidden, which may not have its frame after that.
    void NoteWindowPlace() { placement_.NoteBeforeHiding(); }

    /// After a load that failed, or wasn't reached: keeps a copy of the file, which SaveIni will
    /// replace by what the settings are then. Gives what the user is to know of that; the empty
    /// text where all has been loaded, or there is no file.
    QString KeepUnloaded();

    /// Writes them all. The file is replaced once, at the end; nobody is told where that fails.
    /// What hasn't been loaded is replaced only if there is a copy of it, see KeepUnloaded.
    void SaveIni();

    /// The same file, for those with keys of their own in it.
    [[nodiscard]] ProfileFile& Profile() { return profile_; }

private:
    [[nodiscard]] QString Read(const char* section, const QString& key,
                               const QString& defaultValue) const;
    [[nodiscard]] QString Read(const char* section, const char* key,
                               const char* defaultValue) const;
    [[nodiscard]] QString Read(const Setting& setting) const;
    /// Of a setting that a control keeps.
    [[nodiscard]] qint32 ReadNumber(const char* section, const char* key) const;
    [[nodiscard]] bool ReadBoolean(const char* section, const char* key) const;
    void Load(const Setting::Member& member);
    void Write(const char* section, const QString& key, const QString& value);
    void Write(const char* section, const char* key, const QString& value);
    void Write(const char* section, const char* key, qint32 value);
    void WriteBoolean(const char* section, const char* key, bool value);

    void LoadWindowPlace();
    void LoadResultColumns();
    void LoadDownloadColumns();
    void LoadSearchItems();
    void LoadSaveFolder();
    void LoadLimits();
    void LoadColorsAndGrids();
    void ShowColorsAndGrids();
    void LoadFont();
    void SetFont(const QFont& font);
    void LoadOptions();
    void LoadExclusions();

    void SaveWindowPlace();
    void SaveColumns();
    void SaveSearchItems();
    void SaveSettings();
    [[nodiscard]] QString KeptByControl(const Setting& setting) const;
    void SaveExclusions();

    Controls controls_;
    Services services_;
    Settings& settings_;
    ProfileFile profile_;
    WindowPlacement placement_;
    bool isLoaded_ = false;
    qint16 nodeCount_ = 0; ///< how many exclusion entries the file is said to have
};

} // namespace netrove
