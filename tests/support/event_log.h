// What the fakes of one test were asked to do, in order, each in a few words.
#pragma once

#include <string>
#include <vector>

namespace vesmora {

using EventLog = std::vector<std::string>;

}  // namespace vesmora
