#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include <optional>

namespace glimmet {

/// A JSON object that is read member by member. A member of another type than asked for is a complaint, and
/// so is a missing one where the name says "required"; what is read instead is empty.
class CaseObject {
public:
    /// `complaints` outlives the object; `place` tells where it is, such as "pages[0]".
    CaseObject(const QJsonValue &value, const QString &place, QStringList &complaints);

    bool has(const QString &name) const { return m_object.contains(name); }
    bool isNull(const QString &name) const { return m_object.value(name).isNull(); }
    QStringList names() const { return m_object.keys(); }

    QString requiredText(const QString &name) const;
    /// Also none where the member is null.
    std::optional<QString> text(const QString &name) const;
    double requiredNumber(const QString &name) const;
    std::optional<qint64> integer(const QString &name) const;
    bool flag(const QString &name) const;
    CaseObject object(const QString &name) const;
    /// Empty where the member is missing.
    QJsonArray list(const QString &name) const;
    /// [["name", "value"], …]; empty where the member is missing.
    QList<std::pair<QString, QString>> pairs(const QString &name) const;

    QString placeOf(const QString &name) const;
    void complain(const QString &name, const QString &what) const;

private:
    QJsonObject m_object;
    QString m_place;
    QStringList &m_complaints;
};

} // namespace glimmet
