#include "platform/qt_settings_store.h"

#include <gtest/gtest.h>

#include "platform/files.h"
#include "unit/temporary_folder.h"

namespace melvane {
namespace {

class QtSettingsStoreTest : public testing::Test {
 protected:
    test::TemporaryFolder folder;
    std::string path = folder.file("settings.ini");
};

TEST_F(QtSettingsStoreTest, AKeyNeverWrittenHasNoValue) {
    EXPECT_EQ(QtSettingsStore(path).read("NumNotes"), std::nullopt);
}

TEST_F(QtSettingsStoreTest, AValueOutlivesTheStoreWhateverTheCaseOfItsKey) {
    QtSettingsStore(path).write("form1 Width", "12000");
    const QtSettingsStore store(path);
    EXPECT_EQ(store.read("form1 width"), "12000");
    EXPECT_EQ(store.read("FORM1 WIDTH"), "12000");
}

TEST_F(QtSettingsStoreTest, AValueIsOnTheDiskAtOnce) {
    QtSettingsStore store(path);
    store.write("Notes", "60");
    const auto bytes = readFile(path);
    ASSERT_TRUE(bytes.has_value());
    EXPECT_NE(bytes->find("[Settings]"), std::string::npos);
    EXPECT_NE(bytes->find("notes=60"), std::string::npos);
}

TEST_F(QtSettingsStoreTest, AnyTextComesBackAsItWas) {
    const std::string texts[] = {
        "",    "a, b; c", " blanks ", "\"quoted\"", "@Invalid()", "C:\\x\\", "/tmp/\xC3\xA9t\xC3\xA9.key",
        "a=b", "100%",    "x\ny"};
    int number = 0;
    {
        QtSettingsStore store(path);
        for (const std::string& text : texts) store.write("key " + std::to_string(number++), text);
    }
    const QtSettingsStore store(path);
    number = 0;
    for (const std::string& text : texts) EXPECT_EQ(store.read("key " + std::to_string(number++)), text);
}

TEST_F(QtSettingsStoreTest, AKeyWrittenByHandIsFoundInAnyCase) {
    folder.make("settings.ini", "[Settings]\nNumNotes=2000\nInst%20Name=Grand, bright\n");
    const QtSettingsStore store(path);
    EXPECT_EQ(store.read("numnotes"), "2000");
    EXPECT_EQ(store.read("Inst Name"), "Grand, bright");
}

TEST_F(QtSettingsStoreTest, ADamagedFileCountsAsNeverWrittenAndIsUsableAgain) {
    folder.make("settings.ini", std::string("\x00\xff\xfe[[[\nno equals sign\n=\n[Settings\nNotes", 40));
    QtSettingsStore store(path);
    EXPECT_EQ(store.read("Notes"), std::nullopt);
    store.write("Notes", "61");
    EXPECT_EQ(store.read("Notes"), "61");
    EXPECT_EQ(QtSettingsStore(path).read("Notes"), "61");
}

TEST_F(QtSettingsStoreTest, WhereNothingCanBeStoredTheValuesLiveAsLongAsTheStore) {
    folder.make("file");
    QtSettingsStore store(folder.file("file/settings.ini"));
    store.write("Beats", "12");
    store.write("Beats", "13");
    EXPECT_EQ(store.read("Beats"), "13");
}

}  // namespace
}  // namespace melvane
