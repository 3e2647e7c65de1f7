// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "app/ApplicationInfo.h"

namespace vx3260 {

enum class MessageIcon { None, Information, Exclamation, Question, Critical };
enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };

/// One message box. Texts are UTF-8; a line may be broken by CR LF or by a lone CR.
struct Message {
    std::string text;
    MessageIcon icon = MessageIcon::None;  ///< with Exclamation, No is the default answer
    MessageButtons buttons = MessageButtons::Ok;
    std::string title{ApplicationTitle};
    std::string detail{};  ///< further help under the text; may be empty
};

/// How forms show messages and ask questions.
class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;

    /// Shows the box and returns when it has been answered. Closing a Yes/No box answers No.
    virtual MessageAnswer Show(const Message& message) = 0;

  protected:
    MessageBoxes() = default;
    MessageBoxes(const MessageBoxes&) = default;
    MessageBoxes(MessageBoxes&&) = default;
    MessageBoxes& operator=(const MessageBoxes&) = default;
    MessageBoxes& operator=(MessageBoxes&&) = default;
};

}  // namespace vx3260
