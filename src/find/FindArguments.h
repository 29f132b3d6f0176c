#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace netrove {

/// What the command line asks for.
struct FindArguments {
    enum class Action { Search, ShowHelp, ShowVersion };

    Action action = Action::Search;
    QString patterns; ///< separated by commas; none is empty, all are valid
    QString from;     ///< the start node as it was typed; empty for the root
    bool recurse = true;
    QStringList excluded; ///< entries of the form name|True|type
    bool adminShares = false;
    bool thisComputer = false;
    bool details = false;
    std::optional<qint32> max; ///< the most results to give
    QString logFile;           ///< empty for none
    QString logonFile;         ///< empty for guests

    /// `arguments` are those after the program's name. Raises WrongUse.
    [[nodiscard]] static FindArguments Parse(const QStringList& arguments);
};

} // namespace netrove
