#pragma once
#include <concepts>
#include <string>

#include "core/names.h"
#include "platform/settings_store.h"

namespace melvane {

/// The settings by their meaning. A key never written gives the default; a stored text that is no number (or
/// no truth value) leaves the variable as it is.
class Settings {
 public:
    explicit Settings(SettingsStore& store) : store_(store) {}

    std::string GetSetting(const std::string& key, const std::string& otherwise) const {
        return store_.read(key).value_or(otherwise);
    }
    void SaveSetting(const std::string& key, const std::string& value) { store_.write(key, value); }

    template <std::integral Whole>
    void read(const std::string& key, Whole otherwise, Whole& variable) const {
        const auto text = store_.read(key);
        if (!text) {
            variable = otherwise;
        } else if (const auto number = wholeNumberText(*text)) {
            assign(variable, *number);
        }
    }
    void read(const std::string& key, double otherwise, double& variable) const {
        const auto text = store_.read(key);
        variable = text ? wholeNumberText(*text).value_or(variable) : otherwise;
    }
    void read(const std::string& key, bool otherwise, bool& variable) const {
        const auto text = store_.read(key);
        if (!text) {
            variable = otherwise;
        } else if (const auto truth = booleanText(*text)) {
            variable = *truth;
        }
    }
    void save(const std::string& key, std::integral auto value) { SaveSetting(key, std::to_string(value)); }
    void save(const std::string& key, bool value) { SaveSetting(key, booleanName(value)); }

    void listNames(NameTables& tables);

 private:
    SettingsStore& store_;
};

}  // namespace melvane
