// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/open_file.h"

#include "tables/workbook.h"

#include <cerrno>
#include <memory>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace comfortics::tables {

namespace {

class File {
public:
    explicit File(std::string path) : m_path(std::move(path))
    {
        do
            m_descriptor = ::open(m_path.c_str(), O_RDONLY | O_CLOEXEC);
        while (m_descriptor < 0 && errno == EINTR);
        if (m_descriptor < 0)
            fail();
    }
    ~File()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::size_t read(char* buffer, std::size_t size) const
    {
        for (;;) {
            const ssize_t count = ::read(m_descriptor, buffer, size);
            if (count >= 0)
                return static_cast<std::size_t>(count);
            if (errno != EINTR)
                fail();
        }
    }

private:
    [[noreturn]] void fail() const
    {
        throw TableFault("The file " + m_path + " cannot be read: " + std::generic_category().message(errno) +
                         ".");
    }

    std::string m_path;
    int m_descriptor = -1;
};

} // namespace

OpenTable openFile(const std::string& path, const Shape& told,
                   const std::function<void(std::size_t bytes)>& read)
{
    if (isWorkbook(path))
        return openWorkbook(path, told);
    const auto file = std::make_shared<File>(path);
    return openText(
        [file, read](char* buffer, std::size_t size) {
            const std::size_t count = file->read(buffer, size);
            if (read)
                read(count);
            return count;
        },
        told);
}

} // namespace comfortics::tables
