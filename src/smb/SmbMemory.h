#pragma once

#include <QByteArrayView>

#include <cstddef>
#include <memory>

namespace netrove {

/// Memory that the program and one helper share, for copying files. Through the socket each byte
/// would be copied four times more.
class SmbMemory {
public:
    /// Bytes that one request fetches at most. A page of the memory takes room only once it is
    /// used.
    static constexpr qsizetype Bytes = 16 * 1024 * 1024;

    /// New memory, which has no name and can't be made smaller; null where the system has none.
    [[nodiscard]] static std::unique_ptr<SmbMemory> Make();
    /// The memory behind a descriptor; null where there is none of this size. The descriptor stays
    /// open.
    [[nodiscard]] static std::unique_ptr<SmbMemory> Open(int descriptor);

    SmbMemory(const SmbMemory&) = delete;
    SmbMemory& operator=(const SmbMemory&) = delete;
    ~SmbMemory();

    /// The descriptor that a helper is given; -1 for memory that was opened.
    [[nodiscard]] int Descriptor() const { return descriptor_; }
    [[nodiscard]] char* Data() const { return data_; }

private:
    SmbMemory(char* data, int descriptor) : data_(data), descriptor_(descriptor) {}

    char* data_;
    int descriptor_;
};

} // namespace netrove
