#include "platform/Files.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace ospra {

namespace {

constexpr std::size_t leastCapacity = std::size_t{256} * 1024; // bytes; what a short log needs at most
constexpr std::size_t keptCapacity =
    std::size_t{64} * 1024 * 1024;                         // bytes; a larger buffer is given back for the next file
constexpr std::size_t largestRead = std::size_t{1} << 30u; // bytes at a time; the system reads no more than 2 GB

/// Closes what it holds.
class OpenFile {
public:
    explicit OpenFile(int descriptor) : m_descriptor(descriptor) {}
    ~OpenFile()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

FileReadFailure failureOf(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR: return FileReadFailure::notFound;
    case EACCES:
    case EPERM: return FileReadFailure::notPermitted;
    case EISDIR:
    case ENXIO:
    case ENODEV: return FileReadFailure::notAFile;
    default: return FileReadFailure::unreadable;
    }
}

int openForReading(const char* path)
{
    int descriptor = -1;
    do
        descriptor = ::open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

/// Half of the machine's memory, in bytes.
std::size_t sizeLimit()
{
    static const std::size_t limit = [] {
        const long pages = ::sysconf(_SC_PHYS_PAGES);
        const long pageSize = ::sysconf(_SC_PAGESIZE);
        constexpr std::size_t fallback = std::size_t{1} << 30u;
        return pages > 0 && pageSize > 0 ? static_cast<std::size_t>(pages) / 2 * static_cast<std::size_t>(pageSize)
                                         : fallback;
    }();
    return limit;
}

} // namespace

std::optional<std::string_view> FileReader::fail(FileReadFailure failure)
{
    m_failure = failure;
    return std::nullopt;
}

std::optional<std::string_view> FileReader::read(const std::filesystem::path& path)
{
    // The first look keeps special files from being opened at all: opening a device can already do something. The
    // second, at the open file, is for one that took the file's place in between.
    struct stat status{};
    if (::stat(path.c_str(), &status) != 0)
        return fail(failureOf(errno));
    if (!S_ISREG(status.st_mode))
        return fail(FileReadFailure::notAFile);
    const OpenFile file(openForReading(path.c_str()));
    if (file.descriptor() < 0 || ::fstat(file.descriptor(), &status) != 0)
        return fail(failureOf(errno));
    if (!S_ISREG(status.st_mode))
        return fail(FileReadFailure::notAFile);
    return readAll(file.descriptor(), static_cast<std::size_t>(std::max<off_t>(status.st_size, 0)));
}

std::optional<std::string_view> FileReader::readAll(int file, std::size_t sizeHint)
{
    if (sizeHint > sizeLimit())
        return fail(FileReadFailure::tooLarge);
    try {
        if (m_capacity > keptCapacity && sizeHint < keptCapacity) {
            m_buffer.reset();
            m_capacity = 0;
        }
        makeRoom(sizeHint + 1, 0); // one byte more, so that the read that finds the end needs no growth
        std::size_t size = 0;
        while (true) {
            if (size == m_capacity)
                makeRoom(2 * m_capacity, size);
            const ssize_t count = ::read(file, m_buffer.get() + size, std::min(m_capacity - size, largestRead));
            if (count == 0)
                return std::string_view(m_buffer.get(), size);
            if (count < 0 && errno != EINTR)
                return fail(failureOf(errno));
            size += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
            if (size > sizeLimit())
                return fail(FileReadFailure::tooLarge);
        }
    } catch (const std::bad_alloc&) {
        return fail(FileReadFailure::tooLarge);
    }
}

/// Makes the buffer at least `capacity` bytes large and keeps the first `used` bytes.
void FileReader::makeRoom(std::size_t capacity, std::size_t used)
{
    if (capacity <= m_capacity)
        return;
    // Somewhat more than asked for, so that a row of slightly larger files does not mean a new buffer for each. What
    // is never written to costs nothing.
    const std::size_t newCapacity = std::max({capacity, leastCapacity, std::min(2 * capacity, keptCapacity)});
    if (used == 0) { // the old bytes are of no use; do not hold both
        m_buffer.reset();
        m_capacity = 0;
    }
    auto buffer = std::make_unique_for_overwrite<char[]>(newCapacity);
    if (used > 0)
        std::memcpy(buffer.get(), m_buffer.get(), used);
    m_buffer = std::move(buffer);
    m_capacity = newCapacity;
}

} // namespace ospra
