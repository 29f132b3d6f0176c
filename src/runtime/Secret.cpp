#include "runtime/Secret.h"

#include <cstring>
#include <new>

#include <sys/mman.h>
#include <unistd.h>

namespace netrove {

struct Secret::Pages {
    explicit Pages(QByteArrayView bytes) : length(bytes.size()) {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        size = (static_cast<std::size_t>(length) / page + 1) * page;
        void* memory =
            mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED)
            throw std::bad_alloc();
        data = static_cast<char*>(memory);
        madvise(data, size, MADV_DONTDUMP);
        mlock(data, size); // may be refused beyond the user's limit, which does no harm
        std::memcpy(data, bytes.data(), static_cast<std::size_t>(length));
    }
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;
    ~Pages() {
        explicit_bzero(data, size);
        munmap(data, size);
    }

    qsizetype length;
    std::size_t size = 0;
    char* data = nullptr;
};

Secret::Secret(QByteArrayView bytes) {
    if (!bytes.isEmpty())
        pages_ = std::make_shared<const Pages>(bytes);
}

QByteArrayView Secret::Bytes() const {
    return pages_ ? QByteArrayView(pages_->data, pages_->length) : QByteArrayView("");
}

// Not through data(): that would copy a shared text first, and the copy would be overwritten.

void Wipe(QByteArray& bytes) {
    explicit_bzero(const_cast<char*>(bytes.constData()), // NOLINT: see above
                   static_cast<std::size_t>(bytes.size()));
    bytes.clear();
}

void Wipe(QString& text) {
    explicit_bzero(const_cast<QChar*>(text.constData()), // NOLINT: see above
                   static_cast<std::size_t>(text.size()) * sizeof(QChar));
    text.clear();
}

} // namespace netrove
