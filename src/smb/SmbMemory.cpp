#include "smb/SmbMemory.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace netrove {
namespace {

/// Above the numbers that a helper is started with, so that they don't collide.
constexpr int LowestDescriptor = 10;

char* Map(int descriptor) {
    void* data = mmap(nullptr, SmbMemory::Bytes, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    return data == MAP_FAILED ? nullptr : static_cast<char*>(data);
}

int MakeDescriptor() {
    const int made = memfd_create("netrove-smb", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    if (made < 0)
        return -1;
    const int descriptor = fcntl(made, F_DUPFD_CLOEXEC, LowestDescriptor);
    close(made);
    const bool isReady =
        descriptor >= 0 && ftruncate(descriptor, SmbMemory::Bytes) == 0 &&
        fcntl(descriptor, F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL) == 0;
    if (!isReady && descriptor >= 0)
        close(descriptor);
    return isReady ? descriptor : -1;
}

} // namespace

std::unique_ptr<SmbMemory> SmbMemory::Make() {
    const int descriptor = MakeDescriptor();
    if (descriptor < 0)
        return nullptr;
    if (char* data = Map(descriptor))
        return std::unique_ptr<SmbMemory>(new SmbMemory(data, descriptor));
    close(descriptor);
    return nullptr;
}

std::unique_ptr<SmbMemory> SmbMemory::Open(int descriptor) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0 || status.st_size != Bytes)
        return nullptr;
    char* data = Map(descriptor);
    return data ? std::unique_ptr<SmbMemory>(new SmbMemory(data, -1)) : nullptr;
}

SmbMemory::~SmbMemory() {
    munmap(data_, Bytes);
    if (descriptor_ >= 0)
        close(descriptor_);
}

} // namespace netrove
