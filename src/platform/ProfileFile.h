#pragma once

#include "platform/IniText.h"

#include <QString>

#include <optional>

namespace netrove {

/// An INI file that is read and written key by key, see IniText. Each change replaces the file in
/// one step: whatever happens meanwhile, there is either the whole old file or the whole new one.
/// It is written as UTF-8. A file that exists but can't be read, isn't a regular file or is too
/// large reads as empty and is never replaced.
class ProfileFile {
public:
    /// Longest value that is read, in UTF-16 units; a longer one is cut off.
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
    /// Line ends and zeros in the value become blanks. Returns false if the file couldn't be
    /// replaced, or if a name couldn't be found again as written.
    bool WriteIni(const QString& section, const QString& key, const QString& value);

    /// Keeps the file as it is now, once for this object: a copy beside it gets the file's name and
    /// ".copy-1", or the first number that isn't taken. Returns the copy's path, or an empty text
    /// if there is nothing to keep. Raises ErrorNumber::PathFileAccessError if no copy can be made;
    /// then the file isn't replaced until one has been made.
    QString KeepCopy();

    /// While a batch exists, the file is read only once, and replaced only once, at the end of the
    /// outermost batch. That holds after a failure, too: what was written before it is kept.
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
    /// The file's content while it is being changed.
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
    std::optional<Work> work_{}; ///< only inside a batch
    int batches_ = 0;
    QString copy_{};          ///< path of the copy that KeepCopy has made
    bool awaitsCopy_ = false; ///< KeepCopy couldn't make the copy
};

} // namespace netrove
