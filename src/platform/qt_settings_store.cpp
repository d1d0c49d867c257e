#include "platform/qt_settings_store.h"

#include <QSettings>
#include <QStringList>
#include <QVariant>

#include "platform/text.h"

namespace melvane {

namespace {

// A text with an unquoted comma, written by hand, is read as a list.
std::string textOf(const QVariant& value) {
    if (value.typeId() == QMetaType::QStringList) return value.toStringList().join(", ").toStdString();
    return value.toString().toStdString();
}

}  // namespace

QtSettingsStore::QtSettingsStore()
    : QtSettingsStore(std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                                  QStringLiteral("Melvane"),
                                                  QString::fromLatin1(applicationName))) {}

QtSettingsStore::QtSettingsStore(const std::string& file)
    : QtSettingsStore(std::make_unique<QSettings>(QString::fromStdString(file), QSettings::IniFormat)) {}

QtSettingsStore::QtSettingsStore(std::unique_ptr<QSettings> stored) : stored_(std::move(stored)) {
    stored_->setFallbacksEnabled(false);
    stored_->beginGroup(QString::fromLatin1(section));
    for (const QString& key : stored_->childKeys())
        values_.write(key.toStdString(), textOf(stored_->value(key)));
}

QtSettingsStore::~QtSettingsStore() = default;

void QtSettingsStore::write(const std::string& key, const std::string& value) {
    if (values_.read(key) == value) return;
    values_.write(key, value);
    stored_->setValue(QString::fromStdString(lowerCase(key)), QString::fromStdString(value));
    stored_->sync();
}

}  // namespace melvane
