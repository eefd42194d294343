// An add-in object: created by its component class name (a ProgID such as
// "Roamwise.HostsFile") and called late-bound, by member name, through its
// IDispatch. ole32 and oleaut32 are loaded when the first add-in is created,
// so that the program starts on a system without them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "profile/IAddIn.h"

struct IDispatch;

namespace rwz {

class clsAddInObject : public IAddIn {
  public:
    // Raises when the class is not registered or its object cannot be created.
    static std::shared_ptr<clsAddInObject> Create(const std::string& astrClass);
    ~clsAddInObject() override;
    clsAddInObject(const clsAddInObject&) = delete;
    clsAddInObject& operator=(const clsAddInObject&) = delete;

    // Calls a method or reads a property; arguments go as text. An error of the
    // add-in is raised with the add-in's own description.
    std::string Call(const std::string& astrName,
                     const std::vector<std::string>& avarArgs = {}) override;

  private:
    explicit clsAddInObject(IDispatch* aobjDispatch) : mobjDispatch(aobjDispatch) {}
    IDispatch* mobjDispatch;  // owned: one reference
};

}  // namespace rwz
