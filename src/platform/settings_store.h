#pragma once
#include <map>
#include <optional>
#include <string>

namespace melvane {

/// The per-user store of settings: text under a key, keys without regard to case. User-interface thread.
class SettingsStore {
 public:
    virtual ~SettingsStore() = default;
    virtual std::optional<std::string> read(const std::string& key) const = 0;
    /// Stored at once, and kept when the process dies.
    virtual void write(const std::string& key, const std::string& value) = 0;
};

/// A store that lives as long as the object.
class MemorySettingsStore final : public SettingsStore {
 public:
    std::optional<std::string> read(const std::string& key) const override;
    void write(const std::string& key, const std::string& value) override;
    /// All keys, in lower case, sorted.
    const std::map<std::string, std::string>& all() const { return values_; }

 private:
    std::map<std::string, std::string> values_;
};

}  // namespace melvane
