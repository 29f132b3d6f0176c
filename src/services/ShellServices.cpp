#include "services/ShellServices.h"

#include "runtime/SourceText.h"

namespace netrove {
namespace {

/// Codes up to this one are failures.
constexpr int LastFailure = 32;
constexpr int Succeeded = -1;

ShellVerb VerbOf(const QString& verb, ShellVerb otherwise) {
    if (verb == "Explore"_L1)
        return ShellVerb::Explore;
    return verb == "Open"_L1 ? ShellVerb::Open : otherwise;
}

QString FailureText(int code) {
    switch (code) {
    case Shell::OutOfMemory:
        return u"Error: Out of Memory/Resources. Couldn't Execute!"_s;
    case Shell::FileNotFound:
        return u"Error: File not found.  Couldn't Execute!"_s;
    case Shell::PathNotFound:
        return u"Error: Path not found. Couldn't Execute!"_s;
    case Shell::BadFormat:
        return u"Error:  Bad File Format. Couldn't Execute!"_s;
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
    dialogs_.Message(MessageIcon::Critical, file + "\r\n"_L1 + message,
                     u"Shell execute failed..."_s);
}

int ShellServices::OpenFolder(const QString& path, const QString& verb) {
    return shell_.Execute(path, VerbOf(verb, ShellVerb::Open),
                          [this, path] { TellFailure(path, QString()); });
}

void ShellServices::OpenMailLink(const QString& address) {
    const auto tell = [this] {
        dialogs_.Message(MessageIcon::Exclamation, u"Could not open your mail program!"_s,
                         u"Mail Program Not Found..."_s);
    };
    if (shell_.Execute("mailto:"_L1 + address, ShellVerb::Open, tell) <= LastFailure)
        tell();
}

} // namespace netrove
