#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <vellora/base/Types.h>

namespace vellora::hostkit {

/// Takes the values of a JSON object one by one. A value of the wrong kind is warned of and
/// replaced by its default; a missing one just gives the default.
class FieldReader {
public:
    /// @param place  Names the object in warnings; empty for the outermost.
    FieldReader(QJsonObject object, QString place, QStringList* warnings);

    QString text(const QString& key);
    /// The same, warned of where it is longer than will be kept.
    QString text(const QString& key, int mostCharacters);
    bool boolean(const QString& key);
    double number(const QString& key, double fallback);
    int whole(const QString& key, int fallback);
    /// A quarter-turn angle: 0, 90, 180 or 270.
    int rotation(const QString& key);
    /// A duration of at least one second; 2 where there is none.
    int seconds(const QString& key);
    /// A colour written "#RRGGBB"; black where there is none.
    COLORREF colour(const QString& key);
    QJsonArray array(const QString& key);

    /// What no call has asked for.
    [[nodiscard]] const QJsonObject& unread() const { return m_rest; }

private:
    QJsonValue take(const QString& key);
    void warn(const QString& key, const char* expected);

    QJsonObject m_rest;
    QString m_place;
    QStringList* m_warnings;
};

/// A colour as "#RRGGBB".
QString colourName(COLORREF colour);

}  // namespace vellora::hostkit
