#pragma once

#include "core/MessageTable.h"
#include "platform/console/ConsoleDesktop.h"

namespace zefta {

/// The desktop of the agent: what it has to say stands on standard error and, where there is a display, in a
/// box that nobody has to answer. The agent goes on meanwhile.
class AgentDesktop : public ConsoleDesktop {
  public:
    AgentDesktop(Language language, std::istream& input, std::ostream& error)
        : ConsoleDesktop(input, error, false), language_(language) {}

    void ShowBox(BoxKind kind, const std::string& text, const std::string& caption) override;

  private:
    Language language_;
};

}  // namespace zefta
