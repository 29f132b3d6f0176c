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

/// The settings file's path: in the application folder, with the executable's name. Executables
/// have no extension here: what stands behind a dot belongs to the name, as in "netrove-2.1".
[[nodiscard]] QString
IniFileName(const QString& applicationFolder,
            const QString& executable = QCoreApplication::applicationFilePath());

/// The program's own folder for downloads, with its closing separator.
[[nodiscard]] QString DownloadsFolder(const QString& applicationFolder);

/// All that the program remembers between two runs, except for saved results: moves it from the
/// settings file to the settings and the window's controls, and back. docs/settings.md describes
/// every key.
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

    /// Fills the settings and controls, and shows the window in between. To be called once, before
    /// the window has been shown. Raises ErrorNumber::Overflow for a number too large for its
    /// setting and ErrorNumber::TypeMismatch for an invalid Boolean; then that setting and all that
    /// would have been loaded after it keep the values that they had.
    void LoadIni();

    /// To be called before the window is hidden: after that it may not have its frame any more.
    void NoteWindowPlace() { placement_.NoteBeforeHiding(); }

    /// After a load that failed, or wasn't reached: keeps a copy of the file, since SaveIni will
    /// replace it by the settings at that time. Returns what the user should know about that; an
    /// empty text if all has been loaded, or if there is no file.
    QString KeepUnloaded();

    /// Saves all of it. The file is replaced once, at the end; a failure isn't reported. A file
    /// that hasn't been loaded is replaced only if there is a copy of it, see KeepUnloaded.
    void SaveIni();

    /// The same file, for classes with keys of their own in it.
    [[nodiscard]] ProfileFile& Profile() { return profile_; }

private:
    [[nodiscard]] QString Read(const char* section, const QString& key,
                               const QString& defaultValue) const;
    [[nodiscard]] QString Read(const char* section, const char* key,
                               const char* defaultValue) const;
    [[nodiscard]] QString Read(const Setting& setting) const;
    /// Read a setting that a control keeps.
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
    qint16 nodeCount_ = 0; ///< how many exclusion entries the file says that it has
};

} // namespace netrove
