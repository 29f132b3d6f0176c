#pragma once

#include <QCoreApplication>
#include <QDateTime>
#include <QString>

#include <vector>

namespace netrove {

/// A computer that was asked for its shares in vain. Reasons are texts of this class.
struct SilentComputer {
    QString name;   ///< with "\\"
    QString reason; ///< a sentence for the user
    QDateTime time;

    Q_DECLARE_TR_FUNCTIONS(SilentComputer)
};

/// What has become of the computers of the network since a search began. The search itself passes
/// over those that don't answer, without a word.
class NetworkReport {
public:
    NetworkReport() = default;
    NetworkReport(const NetworkReport&) = delete;
    NetworkReport& operator=(const NetworkReport&) = delete;
    virtual ~NetworkReport() = default;

    /// Forgets everything: a search begins.
    virtual void Begin() = 0;

    /// Those that didn't answer when they were asked last, in the order of time.
    [[nodiscard]] virtual const std::vector<SilentComputer>& SilentComputers() const = 0;
};

} // namespace netrove
