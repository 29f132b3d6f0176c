#pragma once

#include "network/NetResource.h"
#include "settings/Settings.h"

#include <QFile>
#include <QString>
#include <QStringList>

namespace netrove {

/// The troubleshooting log: a text file in UTF-8 with CR LF line ends, begun anew at each start.
/// It is written in blocks of lines, each ended by a line with one blank, and only while the
/// setting Troubleshooting is 1.
class TroubleshootingLog {
public:
    explicit TroubleshootingLog(const Settings& settings) : settings_(settings) {}

    /// Opens the file for writing; what it held is lost. Raises ErrorNumber::PathFileAccessError.
    void Open(const QString& path);
    void Close() { file_.close(); }

    [[nodiscard]] bool IsOn() const { return settings_.Troubleshooting == 1; }

    /// Writes the lines and the blank line behind them, if the log is on. Control characters,
    /// which names from the network can hold, are written as U+FFFD, so that a name can't
    /// forge a line.
    void PrintBlock(const QStringList& lines);

    /// Writes a block that describes a node of the network, beginning with the line `head`. Yields
    /// if the log is on.
    void PrintNode(const QString& head, const NetResource& node);

private:
    const Settings& settings_;
    QFile file_;
};

} // namespace netrove
