#pragma once

#include <QCoreApplication>
#include <QStringList>

namespace netrove {

/// What the window's program is started with: the results files that a desktop hands over when the
/// user opens one there. "--help" and "--version" are for people at a terminal; everything else is
/// set in the window.
class StartArguments {
    Q_DECLARE_TR_FUNCTIONS(StartArguments)

public:
    /// `arguments` is without the program's name.
    explicit StartArguments(const QStringList& arguments);

    /// What to print instead of showing the window; empty to show the window.
    [[nodiscard]] const QString& Text() const { return text_; }

    /// What can't be understood, as a line for the terminal; empty if everything can.
    [[nodiscard]] const QString& Problem() const { return problem_; }

    /// Full paths, in their order. They may not exist.
    [[nodiscard]] const QStringList& Files() const { return files_; }

private:
    void ReadOption(const QString& option);

    QString text_;
    QString problem_;
    QStringList files_;
};

} // namespace netrove
