#pragma once
#include <functional>
#include <string>

namespace melvane::sound_test {

/// What is heard through a real server depends on the machine as well: when it is busy, the server or the
/// recorder drops some milliseconds. So a measurement that finds something wrong is made again; a fault of
/// the program is wrong every time. Empty when one measurement found nothing wrong, else what each of them
/// found.
inline std::string wrongEachTime(const std::function<std::string()>& measure, int times = 6) {
    std::string found;
    for (int time = 0; time < times; ++time) {
        const std::string wrong = measure();
        if (wrong.empty()) return {};
        found += wrong + '\n';
    }
    return found;
}

}  // namespace melvane::sound_test
