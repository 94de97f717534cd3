#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace tessarin::testing {

// Sets (or with nothing, unsets) an environment variable for the life of the object and
// restores the former value after; a change of TZ is taken into account at once.
class ScopedEnvironment {
  public:
    ScopedEnvironment(const char* name, std::optional<std::string> value) : name_(name) {
        if (const char* former = std::getenv(name)) former_ = former;
        Apply(value);
    }
    ~ScopedEnvironment() { Apply(former_); }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

  private:
    void Apply(const std::optional<std::string>& value) {
        if (value) {
            setenv(name_.c_str(), value->c_str(), 1);
        } else {
            unsetenv(name_.c_str());
        }
        tzset();
    }

    std::string name_;
    std::optional<std::string> former_;
};

}  // namespace tessarin::testing
