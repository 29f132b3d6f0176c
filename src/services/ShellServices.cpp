#include "services/ShellServices.h"

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
    const auto letChoose = [this, file] { static_cast<void>(LetChoose(file)); };
    const int code = shell_.Execute(file, VerbOf(verb, ShellVerb::Default), letChoose);
    if (code > LastFailure)
        return Succeeded;
    if (code == Shell::NoAssociation)
        return LetChoose(file);
    TellFailure(file, FailureText(code));
    return code;
}

int ShellServices::LetChoose(const QString& file) {
    const auto tell = [this, file] { TellFailure(file, QString()); };
    if (shell_.OpenWith(file, tell))
        return Succeeded;
    tell();
    return 0;
}

void ShellServices::TellFailure(const QString& file, const QString& message) {
    dialogs_.Message(MessageIcon::Critical, file + QLatin1String("\r\n") + message,
                     QStringLiteral("Shell execute failed..."));
}

int ShellServices::OpenFolder(const QString& path, const QString& verb) {
    return shell_.Execute(path, VerbOf(verb, ShellVerb::Open),
                          [this, path] { TellFailure(path, QString()); });
}

void ShellServices::OpenMailLink(const QString& address) {
    const auto tell = [this] {
        dialogs_.Message(MessageIcon::Exclamation,
                         QStringLiteral("Could not open your mail program!"),
                         QStringLiteral("Mail Program Not Found..."));
    };
    if (shell_.Execute(QLatin1String("mailto:") + address, ShellVerb::Open, tell) <= LastFailure)
        tell();
}

} // namespace netrove
