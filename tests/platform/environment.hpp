#pragma once
// A variable of the environment, set or taken away for the length of a test.

#include <cstdlib>
#include <optional>
#include <string>

namespace tarvek::test {

class Variable {
  public:
    // nullptr takes the variable away.
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) before_ = old;
        Put(value);
    }
    Variable(const char* name, const std::string& value) : Variable(name, value.c_str()) {}
    ~Variable() { Put(before_ ? before_->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    void Put(const char* value) {
        if (value != nullptr)
            ::setenv(name_, value, 1);
        else
            ::unsetenv(name_);
    }

    const char* name_;
    std::optional<std::string> before_;
};

}  // namespace tarvek::test
