#pragma once
#include <filesystem>

namespace melvane {

/// Where the program keeps and finds its own files.
struct Directories {
    std::filesystem::path program;    ///< the working directory: "Songs", "media" and "temp.sng" lie below it
    std::filesystem::path resources;  ///< the sample scores that come with the program; may be read-only

    std::filesystem::path songs() const { return program / "Songs"; }
    std::filesystem::path media() const { return program / "media"; }
};

/// The one place that decides. A program that is installed, with its resources in ../share/melvane, keeps its
/// files in `userData`, which is made when missing. One that was only unpacked, with its resources beside it
/// in "resources", keeps them beside itself when files can be made there, else in `userData` too.
Directories chooseDirectories(const std::filesystem::path& executableFolder,
                              const std::filesystem::path& userData);

}  // namespace melvane
