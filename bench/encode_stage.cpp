#include "encode_stage.h"

#include <QCoreApplication>

namespace melvane::bench {

namespace {

std::filesystem::path makeFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "melvane-bench-XXXXXX").string();
    return mkdtemp(name.data()) != nullptr ? name : std::string(".");
}

}  // namespace

EncodeStage::EncodeStage()
    : folder(makeFolder()),
      outside{clock, loop, port, media, desktop, store, dialogs, Directories{folder, MELVANE_RESOURCES}},
      engine{studio, outside, window, window, floatingWindows} {
    window.attach(engine);
    engine.startUp.Form_Load();
    window.show();
    recorder.show();
    QCoreApplication::processEvents();
}

EncodeStage::~EncodeStage() {
    recorder.close();
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

void EncodeStage::encode(const std::string& wav) {
    studio.Record.Check3.set(false);
    studio.Record.Text6.set(wav);
    studio.Record.Command20.userPut(Value(1LL));
}

}  // namespace melvane::bench
