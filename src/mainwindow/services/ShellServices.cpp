#include "mainwindow/services/ShellServices.h"

namespace netrove {
namespace {

/// Codes up to this one are failures.
constexpr int LastFailure = 32;
constexpr int Succeeded = -1;

ShellVerb VerbOf(const QString& verb, ShellVerb otherwise) {
    if (verb == QLatin1String("Explore"))
        return ShellVerb::Explore;
    return verb == QLatin1String("Open") ? ShellVerb::Open : otherwise;
}

QString FailureText(int code) {
    switch (code) {
    case Shell::OutOfMemory:
        return QStringLiteral("Error: Out of Memory/Resources. Couldn't Execute!");
    case Shell::FileNotFound:
        return QStringLiteral("Error: File not found.  Couldn't Execute!");
    case Shell::PathNotFound:
        return QStringLiteral("Error: Path not found. Couldn't Execute!");
    case Shell::BadFormat:
        return QStringLiteral("Error:  Bad File Format. Couldn't Execute!");
    default:
        return QString();
    }
}

} // namespace

int ShellServices::ShellRun(const QString& file, const QString& verb) {
    int result = shell_.Execute(file, VerbOf(verb, ShellVerb::Default));
    if (result > LastFailure)
        return Succeeded;
    const QString message = FailureText(result);
    if (result == Shell::NoAssociation) {
        if (shell_.OpenWith(file))
            return Succeeded;
        result = 0;
    }
    dialogs_.Message(MessageIcon::Critical, file + QLatin1String("\r\n") + message,
                     QStringLiteral("Shell execute failed..."));
    return result;
}

int ShellServices::OpenFolder(const QString& path, const QString& verb) {
    return shell_.Execute(path, VerbOf(verb, ShellVerb::Open));
}

void ShellServices::OpenMailLink(const QString& address) {
    if (shell_.Execute(QLatin1String("mailto:") + address, ShellVerb::Open) > LastFailure)
        return;
    dialogs_.Message(MessageIcon::Exclamation, QStringLiteral("Could not open your mail program!"),
                     QStringLiteral("Mail Program Not Found..."));
}

} // namespace netrove
