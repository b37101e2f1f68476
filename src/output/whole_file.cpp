// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/whole_file.h"

#include "output/atomic_file.h"

#include <cstddef>

namespace comfortics::output {

namespace {

// Hands bytes to a file in large pieces and keeps the first failure.
class FileSink final : public ByteSink {
public:
    explicit FileSink(AtomicFile& file) : m_file(file) {}

    bool write(std::string_view bytes) override
    {
        constexpr std::size_t kPiece = std::size_t{1} << 16;
        m_waiting += bytes;
        return m_waiting.size() < kPiece ? m_error.empty() : flush();
    }

    bool flush()
    {
        try {
            if (m_error.empty())
                m_file.write(m_waiting);
        } catch (const WriteFailure& failure) {
            m_error = failure.what();
        }
        m_waiting.clear();
        return m_error.empty();
    }

    const std::string& error() const noexcept { return m_error; }

private:
    AtomicFile& m_file;
    std::string m_waiting;
    std::string m_error;
};

} // namespace

WriteResult writeWholeFile(const std::string& path, const std::function<bool(ByteSink&)>& produce)
{
    try {
        AtomicFile file(path);
        FileSink sink(file);
        const bool complete = produce(sink);
        if (!sink.flush())
            return {sink.error()};
        if (!complete)
            return {"The file " + path + " cannot be written: its contents are incomplete."};
        file.commit();
        return {};
    } catch (const WriteFailure& failure) {
        return {failure.what()};
    }
}

} // namespace comfortics::output
