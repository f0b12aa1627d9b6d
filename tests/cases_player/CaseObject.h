#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include <optional>

namespace glimmet {

/// A JSON object that is read member by member. What is of another type than asked for, or is required and
/// not there, is a complaint, and what is read instead is empty. A member of null counts as missing.
class CaseObject {
public:
    using Pairs = QList<std::pair<QString, QString>>;

    /// `complaints` outlives the object; `place` tells where it is, such as "pages[0]"; empty: the whole.
    CaseObject(const QJsonValue &value, const QString &place, QStringList &complaints);

    bool has(const QString &name) const { return !m_object.value(name).isNull() && names().contains(name); }
    QStringList names() const { return m_object.keys(); }

    QString requiredText(const QString &name) const;
    std::optional<QString> text(const QString &name) const;
    double requiredNumber(const QString &name) const;
    std::optional<qint64> integer(const QString &name) const;
    bool flag(const QString &name) const;
    CaseObject object(const QString &name) const;
    /// Empty where the member is missing, like the following.
    QList<CaseObject> objects(const QString &name) const;
    QStringList texts(const QString &name) const;
    QList<double> numbers(const QString &name) const;
    /// [["name", "value"], …]
    Pairs pairs(const QString &name) const;

    void complain(const QString &name, const QString &what) const;

private:
    QJsonArray list(const QString &name) const;
    QString placeOf(const QString &name) const;

    QJsonObject m_object;
    QString m_place;
    QStringList *m_complaints;
};

} // namespace glimmet
