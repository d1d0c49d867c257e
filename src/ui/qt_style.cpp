#include "ui/qt_style.h"

#include <QApplication>
#include <QFile>
#include <QFontDatabase>
#include <QPalette>
#include <QStyleFactory>
#include <cmath>

#include "ui/qt_accessibility.h"
#include "ui/qt_icons.h"

// The macro declares a function of the global namespace.
static void registerResources() { Q_INIT_RESOURCE(melvane); }

namespace melvane {

namespace {

constexpr int fontPoints = 9;

QFont interfaceFont() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    if (!QFontDatabase::families().contains(font.family())) font.setFamily("DejaVu Sans");
    font.setPointSize(fontPoints);
    return font;
}

QPalette interfacePalette() {
    QPalette colours(palette::panel, palette::ground);
    colours.setColor(QPalette::Window, palette::ground);
    colours.setColor(QPalette::WindowText, palette::text);
    colours.setColor(QPalette::Base, palette::field);
    colours.setColor(QPalette::Text, palette::text);
    colours.setColor(QPalette::Button, palette::panel);
    colours.setColor(QPalette::ButtonText, palette::text);
    colours.setColor(QPalette::Highlight, palette::accent);
    colours.setColor(QPalette::HighlightedText, Qt::white);
    colours.setColor(QPalette::Link, palette::accent);
    colours.setColor(QPalette::LinkVisited, palette::accent);
    colours.setColor(QPalette::ToolTipBase, palette::field);
    colours.setColor(QPalette::ToolTipText, palette::text);
    colours.setColor(QPalette::PlaceholderText, palette::secondaryText);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        colours.setColor(QPalette::Disabled, role, palette::disabledText);
    }
    return colours;
}

/// Relative luminance, 0 to 1.
double luminance(const QColor& colour) {
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

}  // namespace

void applyStyle(QApplication& application) {
    registerResources();
    tellScreenReaders();
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setFont(interfaceFont());
    QApplication::setPalette(interfacePalette());
    QApplication::setWindowIcon(programIcon());
    QFile sheet(":/melvane.qss");
    if (sheet.open(QIODevice::ReadOnly)) application.setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

QColor readableOn(const QColor& ground) {
    // Where both contrasts are equal: (1.05) / (L + 0.05) = (L + 0.05) / 0.05.
    return luminance(ground) > 0.179 ? Qt::black : Qt::white;
}

}  // namespace melvane
