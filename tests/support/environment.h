#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace chengheng {

/// A variable of the environment with another value for as long as this lives.
class EnvironmentSetting {
  public:
    EnvironmentSetting(const char* name, const std::string& value) : m_name(name) {
        if (const char* before = std::getenv(name)) m_before = before;
        setenv(name, value.c_str(), 1);
    }
    ~EnvironmentSetting() {
        if (m_before)
            setenv(m_name, m_before->c_str(), 1);
        else
            unsetenv(m_name);
    }
    EnvironmentSetting(const EnvironmentSetting&) = delete;
    EnvironmentSetting& operator=(const EnvironmentSetting&) = delete;

  private:
    const char* m_name;
    std::optional<std::string> m_before;
};

}  // namespace chengheng
