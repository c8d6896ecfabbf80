// The option of the commands that join loose ends.
#pragma once

#include <string>

namespace CLI {
class App;
}  // namespace CLI

namespace ktrcl {

/// Adds --gap MM to a command, from 0 to 1000, `help` being its explanation. `gap` holds the
/// default and must outlive `command`.
void AddGap(CLI::App& command, double& gap, const std::string& help);

}  // namespace ktrcl
