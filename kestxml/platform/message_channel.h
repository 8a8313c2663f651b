// Where a message goes that a person should see even when no caller reports it.
#pragma once

#include "kestxml/platform/api.h"

namespace KestXmlLib20::platform {

/// Takes a title and a text, both UTF-8 and terminated, borrowed for the length of the call.
/// It is called on the thread that has the message, at any time, and must not throw.
using MessageChannel = void (*)(char const* title, char const* text);

/// Replaces the channel of the process and gives the one before. Null stands for the default,
/// which prints one line, "title: text", to standard error.
KESTXML_API MessageChannel SetMessageChannel(MessageChannel channel);

/// Sends a message to the channel.
void ShowMessage(char const* title, char const* text);

}  // namespace KestXmlLib20::platform
