#pragma once

#include "platform/IniText.h"

#include <QString>

#include <optional>

namespace netrove {

/// An INI file that is read and written key by key, see IniText. Each change replaces the file in
/// one step: whatever happens meanwhile, there is the old file or the new one, whole. It is
/// written as UTF-8. A file that exists but can't be read, or is no file or a huge one, reads as
/// empty and is never replaced.
class ProfileFile {
public:
    /// Longest value that is read, in UTF-16 units; what is behind it is cut off.
    static constexpr qsizetype MaxValue = 2047;
    /// Larger files are neither read nor written.
    static constexpr qint64 MaxBytes = 16 << 20;

    /// The file needn't exist.
    explicit ProfileFile(QString path) : path_(std::move(path)) {}

    [[nodiscard]] const QString& Path() const { return path_; }

    /// The value, or the default where section or key is missing. A key without a value gives the
    /// empty text.
    [[nodiscard]] QString ReadIni(const QString& section, const QString& key,
                                  const QString& defaultValue) const;

    /// Creates or replaces the key; an empty value deletes it, an empty key the whole section.
    /// Line ends and zeros in the value become blanks. Gives false where the file couldn't be
    /// replaced, or a name is none that could be found again.
    bool WriteIni(const QString& section, const QString& key, const QString& value);

    /// Keeps the file as it is now, once for this object: a copy beside it has its name and
    /// ".copy-1", or the first number that no other has. Gives the copy's path, the empty text
    /// where there is nothing to keep. Raises ErrorNumber::PathFileAccessError where no copy can be
    /// made; then the file isn't replaced until one has been.
    QString KeepCopy();

    /// While one exists, the file is read once, and replaced once, at the end of the outermost. Its
    /// owner may be leaving because of a failure: what was written so far is kept.
    class Batch {
    public:
        explicit Batch(ProfileFile& file) : file_(file) { file_.Begin(); }
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;
        ~Batch() { file_.End(); }

    private:
        ProfileFile& file_;
    };

private:
    /// The file while it is worked on.
    struct Work {
        IniText text;
        bool usable = true; ///< false where the file on disk must not be replaced
        bool changed = false;
    };

    void Begin();
    bool End();
    [[nodiscard]] Work Load() const;
    [[nodiscard]] std::optional<QByteArray> Bytes() const;
    [[nodiscard]] QString MakeCopy(const QByteArray& bytes) const;
    [[nodiscard]] bool Replace(const QByteArray& bytes) const;

    QString path_;
    std::optional<Work> work_{}; ///< inside a batch
    int batches_ = 0;
    QString copy_{};          ///< that KeepCopy has made
    bool awaitsCopy_ = false; ///< that KeepCopy couldn't make
};

} // namespace netrove
