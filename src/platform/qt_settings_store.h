#pragma once
#include <memory>
#include <string>

#include "platform/settings_store.h"

class QSettings;

namespace melvane {

/// The settings of the user, in the place that the system has for them, under the application
/// "MelvaneRGT 2.3.1" and the section "Settings". What is damaged counts as never written; where nothing can
/// be stored the values live as long as the object.
class QtSettingsStore final : public SettingsStore {
 public:
    QtSettingsStore();
    /// In an .ini file of its own.
    explicit QtSettingsStore(const std::string& file);
    ~QtSettingsStore() override;

    std::optional<std::string> read(const std::string& key) const override { return values_.read(key); }
    void write(const std::string& key, const std::string& value) override;

    static constexpr const char* applicationName = "MelvaneRGT 2.3.1";
    static constexpr const char* section = "Settings";

 private:
    explicit QtSettingsStore(std::unique_ptr<QSettings> stored);

    std::unique_ptr<QSettings> stored_;
    MemorySettingsStore values_;  ///< all of them: this process is the only one that writes
};

}  // namespace melvane
