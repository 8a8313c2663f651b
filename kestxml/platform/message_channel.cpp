#include "kestxml/platform/message_channel.h"

#include <atomic>
#include <cstdio>

namespace KestXmlLib20::platform {
namespace {

void PrintToStandardError(char const* title, char const* text) {
  std::fprintf(stderr, "%s: %s\n", title, text);
}

constinit std::atomic<MessageChannel> currentChannel{&PrintToStandardError};

}  // namespace

MessageChannel SetMessageChannel(MessageChannel channel) {
  return currentChannel.exchange(channel ? channel : &PrintToStandardError);
}

void ShowMessage(char const* title, char const* text) {
  currentChannel.load()(title, text);
}

}  // namespace KestXmlLib20::platform
