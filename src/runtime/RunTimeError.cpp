#include "runtime/RunTimeError.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace netrove {
namespace {

struct Description {
    ErrorNumber number;
    const char* text;
};

constexpr Description Descriptions[] = {
    {ErrorNumber::InvalidProcedureCall,
     QT_TRANSLATE_NOOP("RunTimeError", "Invalid procedure call or argument")},
    {ErrorNumber::Overflow, QT_TRANSLATE_NOOP("RunTimeError", "Overflow")},
    {ErrorNumber::OutOfMemory, QT_TRANSLATE_NOOP("RunTimeError", "Out of memory")},
    {ErrorNumber::SubscriptOutOfRange, QT_TRANSLATE_NOOP("RunTimeError", "Subscript out of range")},
    {ErrorNumber::DivisionByZero, QT_TRANSLATE_NOOP("RunTimeError", "Division by zero")},
    {ErrorNumber::TypeMismatch, QT_TRANSLATE_NOOP("RunTimeError", "Type mismatch")},
    {ErrorNumber::InternalError, QT_TRANSLATE_NOOP("RunTimeError", "Internal error")},
    {ErrorNumber::FileNotFound, QT_TRANSLATE_NOOP("RunTimeError", "File not found")},
    {ErrorNumber::BadFileMode, QT_TRANSLATE_NOOP("RunTimeError", "Bad file mode")},
    {ErrorNumber::FileAlreadyOpen, QT_TRANSLATE_NOOP("RunTimeError", "File already open")},
    {ErrorNumber::DeviceIOError, QT_TRANSLATE_NOOP("RunTimeError", "Device I/O error")},
    {ErrorNumber::FileAlreadyExists, QT_TRANSLATE_NOOP("RunTimeError", "File already exists")},
    {ErrorNumber::DiskFull, QT_TRANSLATE_NOOP("RunTimeError", "Disk full")},
    {ErrorNumber::TooManyFiles, QT_TRANSLATE_NOOP("RunTimeError", "Too many files")},
    {ErrorNumber::DeviceUnavailable, QT_TRANSLATE_NOOP("RunTimeError", "Device unavailable")},
    {ErrorNumber::PermissionDenied, QT_TRANSLATE_NOOP("RunTimeError", "Permission denied")},
    {ErrorNumber::DiskNotReady, QT_TRANSLATE_NOOP("RunTimeError", "Disk not ready")},
    {ErrorNumber::PathFileAccessError, QT_TRANSLATE_NOOP("RunTimeError", "Path/File access error")},
    {ErrorNumber::PathNotFound, QT_TRANSLATE_NOOP("RunTimeError", "Path not found")},
    {ErrorNumber::ObjectNotSet, QT_TRANSLATE_NOOP("RunTimeError", "Object variable not set")},
    {ErrorNumber::InvalidPatternString,
     QT_TRANSLATE_NOOP("RunTimeError", "Invalid pattern string")},
    {ErrorNumber::InvalidPropertyValue,
     QT_TRANSLATE_NOOP("RunTimeError", "Invalid property value")},
    {ErrorNumber::CannotCreateObject,
     QT_TRANSLATE_NOOP("RunTimeError", "Component can't create object")},
    {ErrorNumber::KeyNotUnique,
     QT_TRANSLATE_NOOP("RunTimeError",
                       "This key is already associated with an element of this collection")},
    {ErrorNumber::KeyNotFound, QT_TRANSLATE_NOOP("RunTimeError", "Element not found")},
};

const char* TextOf(int number) {
    const auto* const known =
        std::ranges::find(Descriptions, static_cast<ErrorNumber>(number), &Description::number);
    return known == std::end(Descriptions)
               ? QT_TRANSLATE_NOOP("RunTimeError", "Application-defined or object-defined error")
               : known->text;
}

} // namespace

RunTimeError::RunTimeError(ErrorNumber number)
    : RunTimeError(static_cast<int>(number), tr(TextOf(static_cast<int>(number)))) {}

RunTimeError::RunTimeError(int number, QString description)
    : number_(number), description_(std::move(description)), what_(description_.toUtf8()) {}

QString ErrorDescription(int number) {
    return number == static_cast<int>(ErrorNumber::None) ? QString()
                                                         : QString::fromLatin1(TextOf(number));
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
