// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a form asks of the user or the desktop. The views answer with real dialogs, tests with
// prepared answers.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace comfortics::controls {

enum class Buttons { Ok, YesNo };
enum class Icon { None, Question, Information };
enum class Answer { Ok, Yes, No };

/// A message box. An empty title means the program's own.
struct MessageBox {
    std::string text;
    std::string title = {};
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
    std::string offer = {};    ///< the text of a button beside OK, which answers Yes; none if empty
    std::string checkBox = {}; ///< the text of a check box under the message; none if empty
    bool* checked = nullptr;   ///< where the tick of the check box is left
};

/// Shows message boxes and waits for the answer.
class Messages {
public:
    virtual ~Messages() = default;
    virtual Answer show(const MessageBox& box) = 0;
};

/// The system's clipboard, for plain text (UTF-8).
class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual void clear() = 0;
    virtual void setText(const std::string& text) = 0;
    virtual std::string text() = 0;
};

/// A dialog that asks where to save. A folder that does not exist is no answer.
struct SaveRequest {
    std::string title;
    std::string filter = {};      ///< as the form words it
    std::string fileName = {};    ///< the name offered
    bool overwritePrompt = false; ///< asks before a file that exists is an answer
    /// The file that the form writes for a chosen path, which the prompt is about; the path itself if none.
    std::function<std::string(const std::string& path)> written = {};
};

/// A dialog that asks for a file to read.
struct OpenRequest {
    std::string title;
    std::string filter = {}; ///< as the form words it, with a pattern behind the bar
};

class FileDialogs {
public:
    virtual ~FileDialogs() = default;
    /// The chosen path, or nothing when the user cancels.
    virtual std::optional<std::string> askSave(const SaveRequest& request) = 0;
    /// The same for a file to read. A desktop without such a dialog cancels.
    virtual std::optional<std::string> askOpen(const OpenRequest&) { return std::nullopt; }
};

} // namespace comfortics::controls
