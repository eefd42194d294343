#include "platform/Procedure.h"

#include "platform/modLogging.h"

namespace rwz {

Procedure::Procedure(const char* object, const char* name) : mObject(object), mName(name) {
    WriteLog(std::string(mObject) + " - " + mName, kLogDebug);
}

std::string Procedure::Where() const {
    return std::string(mObject) + ":" + mName;
}

void Procedure::Log(const std::string& text) const {
    WriteLog(std::string(mObject) + " - " + mName + ": " + text, kLogDebug);
}

void Procedure::LogValue(const std::string& value) const {
    WriteLog(std::string(mObject) + " - " + mName + " = " + value, kLogDebug);
}

ErrorInfo Procedure::Fail(const std::exception& error) const {
    ErrorInfo info = ErrorOf(error);
    LogError(info, Where());
    return info;
}

}  // namespace rwz
