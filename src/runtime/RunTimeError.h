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

/// The description of a run-time failure; a number without one of its own has
/// "Application-defined or object-defined error". In English, for texts that stay so; a failure has
/// it in the user's language.
[[nodiscard]] QString ErrorDescription(int number);

/// A run-time failure: raised where a rule says that an operation fails, caught at the place that
/// the rules call a trap.
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

/// The failure that is being handled, called inside a catch: a RunTimeError as it is, a lack of
/// memory as ErrorNumber::OutOfMemory, any other exception as ErrorNumber::InternalError.
[[nodiscard]] RunTimeError CurrentFailure();

/// Takes a step; gives what it failed with, nothing where it hasn't.
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
