#pragma once

#include <stdexcept>
#include <string>

namespace qor {

// A failure while an action runs: a substring of negative length, a full table, a file that can't be read. The action's
// failure trap turns it into the message that belongs to the action; `what()` says plainly what was wrong.
class FalloDeEjecucion : public std::runtime_error {
public:
    explicit FalloDeEjecucion(const std::string& motivo) : std::runtime_error(motivo) {}
};

}  // namespace qor
