#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace netrove {

/// A path in the Universal Naming Convention, taken apart: \\SERVER\SHARE\FOLDER\FILE. Each of its
/// parts passes IsPathElement().
class UncPath {
public:
    /// Nothing where the text isn't such a path. A closing "\" makes no difference.
    [[nodiscard]] static std::optional<UncPath> Parse(const QString& text);

    [[nodiscard]] const QString& Server() const { return server_; }
    [[nodiscard]] const QString& Share() const { return share_; } ///< empty for a server alone
    [[nodiscard]] const QStringList& Elements() const { return elements_; } ///< below the share

    /// The elements joined by "/", empty at the top of the share.
    [[nodiscard]] QString RelativePath() const { return elements_.join(u'/'); }
    [[nodiscard]] QString Text() const;

private:
    QString server_;
    QString share_;
    QStringList elements_;
};

} // namespace netrove
