// An add-in, as the profile object reaches it: late-bound, by member name,
// with string arguments ("Initialize", "ApplySettings", "Restart",
// "LoadSettings", "SaveSettings").
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace rwz {

class IAddIn {
  public:
    virtual ~IAddIn() = default;
    // Calls the member `astrName`; its result as text ("" for none, "True" or
    // "False" for a flag). Raises when the add-in fails.
    virtual std::string Call(const std::string& astrName,
                             const std::vector<std::string>& avarArgs = {}) = 0;
};

// The main window's add-ins, in order; empty entries are skipped.
using AddInCollection = std::vector<std::shared_ptr<IAddIn>>;

}  // namespace rwz
