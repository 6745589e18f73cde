#pragma once

#include <array>

#include "core/MessageTable.h"

namespace zefta {

inline constexpr std::size_t MessageCount = 357;

// In rising order of their numbers. The English texts stand as they always stood, spelling and all: language
// files of translators go by them.
extern const std::array<Message, MessageCount> EnglishMessages;
extern const std::array<Message, MessageCount> RussianMessages;

}  // namespace zefta
