#include "common/ShowFields.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <cmath>
#include <limits>
#include <utility>

namespace vellora::hostkit {
namespace {

constexpr int kDefaultSeconds = 2;

}  // namespace

FieldReader::FieldReader(QJsonObject object, QString place, QStringList* warnings)
    : m_rest(std::move(object)), m_place(std::move(place)), m_warnings(warnings) {}

QJsonValue FieldReader::take(const QString& key) {
    return m_rest.take(key);
}

void FieldReader::warn(const QString& key, const char* expected) {
    const QString path = m_place.isEmpty() ? key : m_place + QLatin1Char('.') + key;
    m_warnings->append(QCoreApplication::translate("hostkit", "%1: expected %2")
                           .arg(path, QCoreApplication::translate("hostkit", expected)));
}

QString FieldReader::text(const QString& key) {
    const QJsonValue value = take(key);
    if (!value.isUndefined() && !value.isString()) {
        warn(key, QT_TRANSLATE_NOOP("hostkit", "a text"));
    }
    return value.toString();
}

QString FieldReader::text(const QString& key, int mostCharacters) {
    const QString value = text(key);
    if (value.size() > mostCharacters) {
        warn(key, QT_TRANSLATE_NOOP("hostkit", "a shorter text; its end is cut off"));
    }
    return value;
}

bool FieldReader::boolean(const QString& key) {
    const QJsonValue value = take(key);
    if (!value.isUndefined() && !value.isBool()) {
        warn(key, QT_TRANSLATE_NOOP("hostkit", "true or false"));
    }
    return value.toBool();
}

double FieldReader::number(const QString& key, double fallback) {
    const QJsonValue value = take(key);
    if (!value.isUndefined() && !value.isDouble()) {
        warn(key, QT_TRANSLATE_NOOP("hostkit", "a number"));
    }
    return value.toDouble(fallback);
}

int FieldReader::whole(const QString& key, int fallback) {
    const QJsonValue value = take(key);
    if (value.isUndefined()) {
        return fallback;
    }
    const double number = value.toDouble(0.5);
    if (number != std::floor(number) || std::abs(number) > std::numeric_limits<int>::max()) {
        warn(key, QT_TRANSLATE_NOOP("hostkit", "a whole number"));
        return fallback;
    }
    return static_cast<int>(number);
}

int FieldReader::rotation(const QString& key) {
    const int angle = whole(key, 0);
    if (angle != 0 && angle != 90 && angle != 180 && angle != 270) {
        warn(key, QT_TRANSLATE_NOOP("hostkit", "0, 90, 180 or 270"));
        return 0;
    }
    return angle;
}

int FieldReader::seconds(const QString& key) {
    const int duration = whole(key, kDefaultSeconds);
    if (duration < 1) {
        warn(key, QT_TRANSLATE_NOOP("hostkit", "at least one second"));
        return kDefaultSeconds;
    }
    return duration;
}

COLORREF FieldReader::colour(const QString& key) {
    const QString name = text(key);
    if (name.isEmpty()) {
        return 0;
    }
    static const QRegularExpression form(QStringLiteral("^#[0-9A-Fa-f]{6}$"));
    if (!form.match(name).hasMatch()) {
        warn(key, QT_TRANSLATE_NOOP("hostkit", "a colour as \"#RRGGBB\""));
        return 0;
    }
    const unsigned rgb = QStringView(name).mid(1).toUInt(nullptr, 16);
    return makeColorRef(rgb >> 16U, rgb >> 8U, rgb);
}

QJsonArray FieldReader::array(const QString& key) {
    const QJsonValue value = take(key);
    if (!value.isUndefined() && !value.isArray()) {
        warn(key, QT_TRANSLATE_NOOP("hostkit", "a list"));
    }
    return value.toArray();
}

QString colourName(COLORREF colour) {
    return QStringLiteral("#%1%2%3")
        .arg(redOf(colour), 2, 16, QLatin1Char('0'))
        .arg(greenOf(colour), 2, 16, QLatin1Char('0'))
        .arg(blueOf(colour), 2, 16, QLatin1Char('0'));
}

}  // namespace vellora::hostkit
