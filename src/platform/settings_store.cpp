#include "platform/settings_store.h"

#include "platform/text.h"

namespace melvane {

std::optional<std::string> MemorySettingsStore::read(const std::string& key) const {
    const auto found = values_.find(lowerCase(key));
    if (found == values_.end()) return std::nullopt;
    return found->second;
}

void MemorySettingsStore::write(const std::string& key, const std::string& value) {
    values_[lowerCase(key)] = value;
}

}  // namespace melvane
