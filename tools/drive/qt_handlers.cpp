#include "drive/qt_handlers.h"

#include <QMetaMethod>
#include <QVariant>
#include <array>
#include <optional>
#include <string>
#include <vector>

namespace melvane::drive {

namespace {

constexpr std::size_t mostArguments = 10;

template <class Parameter>
QVariant variantOf(const Value& value) {
    const auto converted = fromValue<Parameter>(value);
    return converted ? QVariant::fromValue(*converted) : QVariant();
}

/// Invalid when the value does not fit the parameter.
QVariant asParameter(const Value& value, int type) {
    switch (type) {
        case QMetaType::Int:
            return variantOf<int>(value);
        case QMetaType::Short:
            return variantOf<short>(value);
        case QMetaType::Double:
            return variantOf<double>(value);
        case QMetaType::Float:
            return variantOf<float>(value);
        case QMetaType::Bool:
            return variantOf<bool>(value);
        case QMetaType::QString: {
            const auto* text = std::get_if<std::string>(&value);
            return text != nullptr ? QVariant(QString::fromStdString(*text)) : QVariant();
        }
        default:
            return {};
    }
}

Value returnedValue(const QVariant& returned) {
    switch (returned.typeId()) {
        case QMetaType::UnknownType:
        case QMetaType::Void:
            return {};
        case QMetaType::Bool:
            return returned.toBool();
        case QMetaType::QString:
            return returned.toString().toStdString();
        case QMetaType::Double:
        case QMetaType::Float:
            return returned.toDouble();
        default:
            return returned.toLongLong();
    }
}

CallResult invoke(QObject& object, const QMetaMethod& method, std::span<const Value> arguments) {
    const auto count = static_cast<std::size_t>(method.parameterCount());
    if (arguments.size() != count) return {{}, "takes " + std::to_string(count) + " arguments"};
    if (count > mostArguments) return {{}, "takes more arguments than a script can give"};
    std::vector<QVariant> values;
    std::array<QGenericArgument, mostArguments> given;
    values.reserve(count);
    for (std::size_t index = 0; index < count; ++index) {
        values.push_back(asParameter(arguments[index], method.parameterType(static_cast<int>(index))));
        if (!values.back().isValid()) return {{}, "an argument is of the wrong kind"};
        given[index] = QGenericArgument(values.back().typeName(), values.back().constData());
    }
    QVariant returned;
    QGenericReturnArgument room;
    if (method.returnType() != QMetaType::Void) {
        returned = QVariant(method.returnMetaType());
        room = QGenericReturnArgument(method.typeName(), returned.data());
    }
    const bool called = method.invoke(&object, Qt::DirectConnection, room, given[0], given[1], given[2],
                                      given[3], given[4], given[5], given[6], given[7], given[8], given[9]);
    if (!called) return {{}, "cannot be called"};
    return {returnedValue(returned), {}};
}

/// The function of that name among those that our own classes add; the one with `count` parameters when there
/// are several.
std::optional<QMetaMethod> findMethod(const QObject& object, std::string_view name, int count) {
    const auto wanted = QByteArray(name.data(), static_cast<qsizetype>(name.size()));
    std::optional<QMetaMethod> found;
    const QMetaObject* kind = object.metaObject();
    for (; kind != nullptr && QByteArray(kind->className()).startsWith("melvane::");
         kind = kind->superClass()) {
        for (int index = kind->methodOffset(); index < kind->methodCount(); ++index) {
            const QMetaMethod method = kind->method(index);
            if (method.name().compare(wanted, Qt::CaseInsensitive) != 0) continue;
            if (method.methodType() == QMetaMethod::Signal) continue;
            if (!found || method.parameterCount() == count) found = method;
        }
    }
    return found;
}

}  // namespace

CallResult callInvokable(QWidget& window, std::string_view name, std::span<const Value> arguments,
                         bool& known) {
    QList<QObject*> objects{&window};
    objects += window.findChildren<QObject*>();
    for (QObject* object : objects) {
        const auto method = findMethod(*object, name, static_cast<int>(arguments.size()));
        if (!method) continue;
        known = true;
        return invoke(*object, *method, arguments);
    }
    known = false;
    return {};
}

}  // namespace melvane::drive
