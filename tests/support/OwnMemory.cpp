#include "tests/support/OwnMemory.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <span>
#include <sys/mman.h>
#include <unistd.h>

namespace glimmet {
namespace {

constexpr int length = 64;

/// Without a part that comes again: it would be found as another copy.
char letter(int i)
{
    const std::uint32_t scattered = std::uint32_t(i + 1) * 2654435761U;
    return char('a' + (scattered >> 16) % 26);
}

/// Whether the second half of the key is there, a letter every `step` bytes. The key itself is never made for
/// the comparison: it would be found, too.
bool isMarkedAt(const char *bytes, std::size_t step)
{
    for (int i = length / 2; i < length; ++i) {
        const char *at = bytes + std::size_t(i - length / 2) * step;
        if (*at != letter(i) || (step == 2 && at[1] != '\0'))
            return false;
    }
    return true;
}

/// How many begin in the first `starts` of the bytes.
int copiesIn(const char *bytes, std::size_t size, std::size_t starts)
{
    int copies = 0;
    const char first = letter(length / 2);
    for (const char *at = bytes;
        (at = static_cast<const char *>(std::memchr(at, first, bytes + starts - at))); ++at)
        for (const std::size_t step : { 1, 2 })
            if (step * length / 2 <= std::size_t(bytes + size - at) && isMarkedAt(at, step))
                ++copies;
    return copies;
}

/// Where what is looked at is read into; no part of what is looked at itself, since it is shared.
class Window {
public:
    Window()
        : m_bytes(static_cast<char *>(
              mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)))
    {
    }
    ~Window() { munmap(m_bytes, size); }
    Q_DISABLE_COPY_MOVE(Window)

    char *bytes() const { return m_bytes; }

    static constexpr std::size_t size = std::size_t(1) << 20;

private:
    char *m_bytes;
};

struct Area {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
};

/// Larger is only a sanitizer's map of all memory, which is full of holes and holds no text.
constexpr std::uint64_t largestArea = std::uint64_t(1) << 38;

/// The memory that this process can write and shares with nobody.
std::span<const Area> writableAreas(std::span<Area> areas, const Window &window)
{
    const int maps = open("/proc/self/maps", O_RDONLY | O_CLOEXEC);
    std::size_t size = 0;
    for (ssize_t more = 0; (more = read(maps, window.bytes() + size, Window::size - 1 - size)) > 0;)
        size += std::size_t(more);
    close(maps);
    window.bytes()[size] = '\0';
    std::size_t count = 0;
    for (const char *line = window.bytes(); *line != '\0' && count < areas.size();
        line = std::strchr(line, '\n') + 1) {
        char *rest = nullptr;
        const Area area{ std::strtoull(line, &rest, 16), std::strtoull(rest + 1, &rest, 16) };
        if (std::strncmp(rest, " rw-p", 5) == 0 && area.end - area.begin <= largestArea)
            areas[count++] = area;
    }
    return areas.first(count);
}

int copiesIn(const Area &area, int memory, const Window &window)
{
    constexpr std::size_t overlap = std::size_t(2) * length;
    constexpr std::size_t step = Window::size - overlap;
    int copies = 0;
    for (std::uint64_t at = area.begin; at < area.end; at += step) {
        const std::size_t wanted = std::min<std::uint64_t>(Window::size, area.end - at);
        const ssize_t size = pread(memory, window.bytes(), wanted, off_t(at));
        if (size > 0)
            copies += copiesIn(window.bytes(), std::size_t(size), std::min(std::size_t(size), step));
    }
    return copies;
}

} // namespace

QString markedKey()
{
    QString key(length, Qt::Uninitialized);
    for (int i = 0; i < length; ++i)
        key[i] = QLatin1Char(letter(i));
    return key;
}

int copiesOfMarkedKey()
{
    // Nothing is allocated on the way: it would get the very memory that was given back last, and write to
    // it.
    const Window window;
    std::array<Area, 2000> areas;
    const int memory = open("/proc/self/mem", O_RDONLY | O_CLOEXEC);
    int copies = 0;
    for (const Area &area : writableAreas(areas, window))
        copies += copiesIn(area, memory, window);
    close(memory);
    return copies;
}

} // namespace glimmet
