#pragma once
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace melvane {

/// What the desktop around the program offers besides windows. User-interface thread.
class Desktop {
 public:
    virtual ~Desktop() = default;

    /// Starts the system's mixer beside the program; false when it cannot be started.
    virtual bool openMixer() = 0;
    /// The files that must lie beside the program before it can encode; none where the encoder is part of it.
    virtual std::vector<std::string_view> encoderFiles() const = 0;

    /// An entry of the system's table of media drivers: `section` and `key` without regard to case;
    /// `otherwise` when there is none.
    virtual std::string readEntry(const std::string& section, const std::string& key,
                                  const std::string& otherwise) const = 0;
    virtual void writeEntry(const std::string& section, const std::string& key, const std::string& value) = 0;
};

/// The table of media drivers of a system that has none: empty at the start, and gone with the object.
class DesktopWithoutEntries : public Desktop {
 public:
    std::string readEntry(const std::string& section, const std::string& key,
                          const std::string& otherwise) const override;
    void writeEntry(const std::string& section, const std::string& key, const std::string& value) override;

 private:
    std::map<std::string, std::string> entries_;
};

/// The desktop of a free system: the mixer is the first that is found, and the encoder is linked.
class SystemDesktop final : public DesktopWithoutEntries {
 public:
    bool openMixer() override;
    std::vector<std::string_view> encoderFiles() const override { return {}; }
};

/// Where the encoder lies in library files beside the program, in the order in which they are looked for.
inline std::vector<std::string_view> encoderLibraryFiles() { return {"akrip32.dll", "lame_enc.dll"}; }

/// A desktop without a mixer, whose encoder lies in library files beside the program.
class BareDesktop final : public DesktopWithoutEntries {
 public:
    bool openMixer() override { return false; }
    std::vector<std::string_view> encoderFiles() const override { return encoderLibraryFiles(); }
};

}  // namespace melvane
