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
    bool answersNow = false; ///< it was asked again since, and answered

    [[nodiscard]] bool IsShare() const { return name.count(u'\\') > 2; }
    /// The computer that it is or belongs to, without "\\\\".
    [[nodiscard]] QString Computer() const { return name.section(u'\\', 2, 2); }

    [[nodiscard]] bool operator==(const NotSearched&) const = default;

    Q_DECLARE_TR_FUNCTIONS(NotSearched)
};

/// What a search hasn't seen of the network though it was to look there. The search itself passes
/// over what doesn't answer, without a word. What the user has aborted or left out isn't here.
class NetworkReport {
public:
    NetworkReport() = default;
    NetworkReport(const NetworkReport&) = delete;
    NetworkReport& operator=(const NetworkReport&) = delete;
    virtual ~NetworkReport() = default;

    /// Forgets everything: a search begins.
    virtual void Begin() = 0;

    /// Those that were asked in vain since then, by whomever, in the order of time.
    [[nodiscard]] virtual const std::vector<NotSearched>& All() const = 0;

    /// Takes down that one of them, or another, has answered or hasn't. `name` is that of its node.
    virtual void NoteAnswer(const QString& name) = 0;
    virtual void NoteSilence(const QString& name, const QString& reason) = 0;

    /// The search was to look for computers, and there was none.
    virtual void NoteNobody() = 0;
    [[nodiscard]] virtual bool FoundNobody() const = 0;

    /// Where the computers of the network are looked for, a sentence for the user each.
    [[nodiscard]] virtual QStringList Sources() const = 0;
};

} // namespace netrove
