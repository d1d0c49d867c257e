#include <QAbstractButton>
#include <QDir>
#include <QTabBar>
#include <QTextDocument>
#include <algorithm>

#include "every_window.h"
#include "tutorial/lessons.h"

namespace melvane::test {

namespace {

/// All topics as the reader sees them, in one text.
QString help() {
    QString all;
    const QDir topics(QStringLiteral(MELVANE_RESOURCES "/help"));
    for (const QString& name : topics.entryList({"*.md"})) {
        QFile file(topics.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) continue;
        QTextDocument page;
        page.setMarkdown(QString::fromUtf8(file.readAll()));
        all += page.toPlainText() + "\n";
    }
    return all.simplified();
}

/// The words on buttons, ticks and pages; numbers stand in rows, of which the help tells the ends.
QStringList captionsOf(const QWidget& part) {
    QStringList captions;
    if (const auto* const bar = qobject_cast<const QTabBar*>(&part)) {
        for (int page = 0; page < bar->count(); ++page) captions << bar->tabText(page);
    } else if (const auto* const button = qobject_cast<const QAbstractButton*>(&part)) {
        captions << button->text().remove('&');
    }
    captions.removeIf([](const QString& caption) {
        bool isNumber = false;
        caption.toInt(&isNumber);
        return caption.isEmpty() || isNumber;
    });
    return captions;
}

/// The steps of the lessons explain themselves, by their tips.
bool isStep(const QWidget& part) {
    return std::ranges::any_of(lessons(), [&part](const Lesson* lesson) {
        return part.objectName().startsWith(QString(lesson->labels) + "(");
    });
}

}  // namespace

class EveryWindowsHelp : public EveryWindow {};

TEST_P(EveryWindowsHelp, NamesEveryCaptionOfTheControls) {
    const QString all = help();
    ASSERT_GT(all.size(), 10000);
    for (const QWidget* const part : controls()) {
        if (isStep(*part)) continue;
        for (const QString& caption : captionsOf(*part)) {
            EXPECT_TRUE(all.contains(caption.simplified(), Qt::CaseInsensitive))
                << called(*part) << ": " << caption.toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Windows, EveryWindowsHelp, testing::ValuesIn(windowStates()), nameOf);

}  // namespace melvane::test
