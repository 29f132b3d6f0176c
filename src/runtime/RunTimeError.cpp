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
        return RunTimeError::tr("Invalid procedure call or argument");
    case ErrorNumber::Overflow:
        return RunTimeError::tr("Overflow");
    case ErrorNumber::OutOfMemory:
        return RunTimeError::tr("Out of memory");
    case ErrorNumber::SubscriptOutOfRange:
        return RunTimeError::tr("Subscript out of range");
    case ErrorNumber::DivisionByZero:
        return RunTimeError::tr("Division by zero");
    case ErrorNumber::TypeMismatch:
        return RunTimeError::tr("Type mismatch");
    case ErrorNumber::InternalError:
        return RunTimeError::tr("Internal error");
    case ErrorNumber::FileNotFound:
        return RunTimeError::tr("File not found");
    case ErrorNumber::BadFileMode:
        return RunTimeError::tr("Bad file mode");
    case ErrorNumber::FileAlreadyOpen:
        return RunTimeError::tr("File already open");
    case ErrorNumber::DeviceIOError:
        return RunTimeError::tr("Device I/O error");
    case ErrorNumber::FileAlreadyExists:
        return RunTimeError::tr("File already exists");
    case ErrorNumber::DiskFull:
        return RunTimeError::tr("Disk full");
    case ErrorNumber::TooManyFiles:
        return RunTimeError::tr("Too many files");
    case ErrorNumber::DeviceUnavailable:
        return RunTimeError::tr("Device unavailable");
    case ErrorNumber::PermissionDenied:
        return RunTimeError::tr("Permission denied");
    case ErrorNumber::DiskNotReady:
        return RunTimeError::tr("Disk not ready");
    case ErrorNumber::PathFileAccessError:
        return RunTimeError::tr("Path/File access error");
    case ErrorNumber::PathNotFound:
        return RunTimeError::tr("Path not found");
    case ErrorNumber::ObjectNotSet:
        return RunTimeError::tr("Object variable not set");
    case ErrorNumber::InvalidPatternString:
        return RunTimeError::tr("Invalid pattern string");
    case ErrorNumber::InvalidPropertyValue:
        return RunTimeError::tr("Invalid property value");
    case ErrorNumber::CannotCreateObject:
        return RunTimeError::tr("Component can't create object");
    case ErrorNumber::KeyNotUnique:
        return RunTimeError::tr(
            "This key is already associated with an element of this collection");
    case ErrorNumber::KeyNotFound:
        return RunTimeError::tr("Element not found");
    }
    return RunTimeError::tr("Application-defined or object-defined error");
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
