#pragma once

#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <vector>

namespace netrove {

/// A computer whose list of shares couldn't be had, or a share that couldn't be entered. Reasons
/// are texts of this class.
struct NotSearched {
    QString name;   ///< of its node: "\\\\COMPUTER" or "\\\\COMPUTER\\SHARE"
    QString reason; ///< a sentence for the user
    QDateTime time;
    bool answersNow = false; ///< it has been asked again since, and has answered

    [[nodiscard]] bool IsShare() const { return name.count(u'\\') > 2; }
    /// The name of the computer, or of the share's computer, without "\\\\".
    [[nodiscard]] QString Computer() const { return name.section(u'\\', 2, 2); }

    [[nodiscard]] bool operator==(const NotSearched&) const = default;

    Q_DECLARE_TR_FUNCTIONS(NotSearched)
};

/// What a search should have seen of the network but hasn't. The search itself silently passes over
/// what doesn't answer. What the user has aborted or left out isn't here.
class NetworkReport {
public:
    NetworkReport() = default;
    NetworkReport(const NetworkReport&) = delete;
    NetworkReport& operator=(const NetworkReport&) = delete;
    virtual ~NetworkReport() = default;

    /// A search begins: forgets everything.
    virtual void Begin() = 0;

    /// The computers and shares that were asked in vain since Begin(), for whatever purpose, in the
    /// order of time.
    [[nodiscard]] virtual const std::vector<NotSearched>& All() const = 0;

    /// Note that a computer or share, in the report or not, has answered or hasn't. `name` is that
    /// of its node.
    virtual void NoteAnswer(const QString& name) = 0;
    virtual void NoteSilence(const QString& name, const QString& reason) = 0;

    /// Notes that the search was to look for computers, and there were none.
    virtual void NoteNobody() = 0;
    [[nodiscard]] virtual bool FoundNobody() const = 0;

    /// Where the computers of the network are looked for: sentences for the user.
    [[nodiscard]] virtual QStringList Sources() const = 0;
};

} // namespace netrove
