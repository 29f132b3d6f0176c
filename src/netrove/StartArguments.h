#pragma once

#include <QStringList>

namespace netrove {

/// What the window's program is started with: the results files that a desktop hands over when one
/// is opened there. "--help" and "--version" are for people at a terminal; everything else is set
/// in the window.
class StartArguments {
public:
    /// `arguments` is without the program's name.
    explicit StartArguments(const QStringList& arguments);

    /// What to print instead of showing the window; empty where nothing was asked.
    [[nodiscard]] const QString& Text() const { return text_; }

    /// What can't be understood, as a line for the terminal; empty where all can.
    [[nodiscard]] const QString& Problem() const { return problem_; }

    /// Full paths, in their order. Whether they exist isn't looked at.
    [[nodiscard]] const QStringList& Files() const { return files_; }

private:
    void ReadOption(const QString& option);

    QString text_;
    QString problem_;
    QStringList files_;
};

} // namespace netrove
