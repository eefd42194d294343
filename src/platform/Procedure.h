// Entry line and exit block of a procedure, written once for the whole program.
//
//   bool clsRwzConfig::Save(const std::string& astrFile) {
//       Procedure proc("clsRwzConfig", "Save");     // logs "clsRwzConfig - Save"
//       return proc.Run([&] { ...; return true; });  // on error: logs
//   }                                                 // "... : clsRwzConfig:Save", returns false
//
// Whatever the body changed for the time of the call (the mouse pointer, an open
// file) is restored by RAII objects inside the body as the error unwinds.
#pragma once

#include <exception>
#include <string>
#include <type_traits>
#include <utility>

#include "platform/RwzError.h"

namespace rwz {

class Procedure {
  public:
    // Writes the entry line "object - name" at level Debug.
    Procedure(const char* object, const char* name);

    const char* Object() const { return mObject; }
    const char* Name() const { return mName; }
    // "object:name", the place an error is logged under.
    std::string Where() const;

    // "object - name: text" at level Debug.
    void Log(const std::string& text) const;
    // "object - name = value" at level Debug.
    void LogValue(const std::string& value) const;

    // Runs the body. An error is logged here and stopped: the procedure yields
    // a default value (or `fallback`).
    template <class Body>
    auto Run(Body&& body) const {
        using R = std::invoke_result_t<Body&>;
        try {
            return body();
        } catch (const std::exception& error) {
            Fail(error);
        }
        if constexpr (!std::is_void_v<R>) return R{};
    }

    template <class Body, class R>
    R Run(Body&& body, R fallback) const {
        try {
            return body();
        } catch (const std::exception& error) {
            Fail(error);
        }
        return fallback;
    }

    // As Run, then calls onError(error) after logging and yields what it returns.
    template <class Body, class OnError>
    auto RunThen(Body&& body, OnError&& onError) const {
        ErrorInfo info;
        try {
            return body();
        } catch (const std::exception& error) {
            info = Fail(error);
        }
        if constexpr (std::is_invocable_v<OnError&, const ErrorInfo&>)
            return onError(info);
        else
            return onError();
    }

    // Runs the body; an error is logged here and then passed on to the caller.
    template <class Body>
    auto RunPassingOn(Body&& body) const {
        try {
            return body();
        } catch (const std::exception& error) {
            Fail(error);
            throw;
        }
    }

  private:
    // Logs the error under Where() and returns it.
    ErrorInfo Fail(const std::exception& error) const;

    const char* mObject;
    const char* mName;
};

}  // namespace rwz
