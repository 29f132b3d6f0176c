#include "runtime/RunTimeError.h"

#include <new>

namespace netrove {

RunTimeError::RunTimeError(ErrorNumber number)
    : RunTimeError(static_cast<int>(number), ErrorDescription(static_cast<int>(number))) {}

RunTimeError::RunTimeError(int number, QString description)
    : number_(number), description_(std::move(description)), what_(description_.toUtf8()) {}

QString ErrorDescription(int number) {
    switch (static_cast<ErrorNumber>(number)) {
    case ErrorNumber::None:
        return QString();
    case ErrorNumber::InvalidProcedureCall:
        return QStringLiteral("Invalid procedure call or argument");
    case ErrorNumber::Overflow:
        return QStringLiteral("Overflow");
    case ErrorNumber::OutOfMemory:
        return QStringLiteral("Out of memory");
    case ErrorNumber::SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case ErrorNumber::DivisionByZero:
        return QStringLiteral("Division by zero");
    case ErrorNumber::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case ErrorNumber::InternalError:
        return QStringLiteral("Internal error");
    case ErrorNumber::FileNotFound:
        return QStringLiteral("File not found");
    case ErrorNumber::BadFileMode:
        return QStringLiteral("Bad file mode");
    case ErrorNumber::FileAlreadyOpen:
        return QStringLiteral("File already open");
    case ErrorNumber::DeviceIOError:
        return QStringLiteral("Device I/O error");
    case ErrorNumber::FileAlreadyExists:
        return QStringLiteral("File already exists");
    case ErrorNumber::DiskFull:
        return QStringLiteral("Disk full");
    case ErrorNumber::TooManyFiles:
        return QStringLiteral("Too many files");
    case ErrorNumber::DeviceUnavailable:
        return QStringLiteral("Device unavailable");
    case ErrorNumber::PermissionDenied:
        return QStringLiteral("Permission denied");
    case ErrorNumber::DiskNotReady:
        return QStringLiteral("Disk not ready");
    case ErrorNumber::PathFileAccessError:
        return QStringLiteral("Path/File access error");
    case ErrorNumber::PathNotFound:
        return QStringLiteral("Path not found");
    case ErrorNumber::ObjectNotSet:
        return QStringLiteral("Object variable not set");
    case ErrorNumber::InvalidPatternString:
        return QStringLiteral("Invalid pattern string");
    case ErrorNumber::InvalidPropertyValue:
        return QStringLiteral("Invalid property value");
    case ErrorNumber::CannotCreateObject:
        return QStringLiteral("Component can't create object");
    case ErrorNumber::KeyNotUnique:
        return QStringLiteral("This key is already associated with an element of this collection");
    case ErrorNumber::KeyNotFound:
        return QStringLiteral("Element not found");
    }
    return QStringLiteral("Application-defined or object-defined error");
}

RunTimeError CurrentFailure() {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RunTimeError(ErrorNumber::OutOfMemory);
    } catch (...) {
        return RunTimeError(ErrorNumber::InternalError);
    }
}

} // namespace netrove
