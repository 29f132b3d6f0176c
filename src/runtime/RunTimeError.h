#pragma once

#include <QCoreApplication>
#include <QString>

#include <exception>
#include <optional>

namespace netrove {

/// Numbers of run-time failures, as the program shows and stores them ("Error (53)").
enum class ErrorNumber : int {
    None = 0,
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    InternalError = 51,
    FileNotFound = 53,
    BadFileMode = 54,
    FileAlreadyOpen = 55,
    DeviceIOError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidPatternString = 93,
    InvalidPropertyValue = 380,
    CannotCreateObject = 429,
    KeyNotUnique = 457,
    KeyNotFound = 35601,
};

/// The description of a run-time failure; for a number without one of its own it is
/// "Application-defined or object-defined error". It is in English, for texts that stay English; a
/// RunTimeError has it in the user's language.
[[nodiscard]] QString ErrorDescription(int number);

/// A run-time failure: raised by an operation that fails, caught at the places called traps
/// (Dialogs::Trap for one).
class RunTimeError : public std::exception {
    Q_DECLARE_TR_FUNCTIONS(RunTimeError)

public:
    explicit RunTimeError(ErrorNumber number);
    RunTimeError(int number, QString description);

    [[nodiscard]] int Number() const { return number_; }
    [[nodiscard]] const QString& Description() const { return description_; }
    [[nodiscard]] const char* what() const noexcept override { return what_.constData(); }

private:
    int number_;
    QString description_;
    QByteArray what_;
};

/// The failure that is being handled; to be called inside a catch. A RunTimeError stays as it is;
/// lack of memory becomes ErrorNumber::OutOfMemory, any other exception
/// ErrorNumber::InternalError.
[[nodiscard]] RunTimeError CurrentFailure();

/// Takes a step; returns what it failed with, or nothing if it succeeded.
template <typename Step>
std::optional<RunTimeError> FailureOf(Step step) {
    try {
        step();
    } catch (...) {
        return CurrentFailure();
    }
    return std::nullopt;
}

} // namespace netrove
