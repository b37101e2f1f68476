// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/last_words.h"

#include <array>
#include <cstdlib>
#include <exception>
#include <new>
#include <stdexcept>
#include <string_view>

#include <unistd.h>

namespace comfortics::shell {

namespace {

const char* endingProgram = "";
int endingStatus = EXIT_FAILURE;

using Pieces = std::array<std::string_view, 3>;

constexpr std::string_view kUnforeseen = "An unforeseen failure ended the program";

// The texts live as long as the exception.
Pieces pieces() noexcept
{
    const Pieces noMemory{"The memory does not suffice for this", "", "."};
    if (!std::current_exception())
        return {kUnforeseen, "", "."};
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return noMemory;
    } catch (const std::length_error&) { // more than any memory holds
        return noMemory;
    } catch (const std::exception& failure) {
        return {"An unforeseen failure ended the program: ", failure.what(), "."};
    } catch (...) {
        return {kUnforeseen, "", "."};
    }
}

void write(std::string_view text) noexcept
{
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
}

} // namespace

std::string lastWords()
{
    std::string sentence;
    for (const std::string_view piece : pieces())
        sentence += piece;
    return sentence;
}

void sayLastWords(const char* program) noexcept
{
    write(program);
    write(": ");
    for (const std::string_view piece : pieces())
        write(piece);
    write("\n");
}

void speakBeforeTheEnd(const char* program, int status) noexcept
{
    endingProgram = program;
    endingStatus = status;
    std::set_terminate([] {
        sayLastWords(endingProgram);
        std::_Exit(endingStatus);
    });
}

} // namespace comfortics::shell
