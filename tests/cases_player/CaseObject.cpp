#include "tests/cases_player/CaseObject.h"

namespace glimmet {

using namespace Qt::StringLiterals;

CaseObject::CaseObject(const QJsonValue &value, const QString &place, QStringList &complaints)
    : m_object(value.toObject())
    , m_place(place)
    , m_complaints(complaints)
{
    if (!value.isObject())
        m_complaints.append((place.isEmpty() ? u"the file"_s : place) + " is no object"_L1);
}

QString CaseObject::placeOf(const QString &name) const
{
    return m_place.isEmpty() ? name : m_place + u'.' + name;
}

void CaseObject::complain(const QString &name, const QString &what) const
{
    m_complaints.append(placeOf(name) + u' ' + what);
}

QString CaseObject::requiredText(const QString &name) const
{
    if (!m_object.value(name).isString())
        complain(name, u"is no text"_s);
    return m_object.value(name).toString();
}

std::optional<QString> CaseObject::text(const QString &name) const
{
    if (!has(name) || isNull(name))
        return std::nullopt;
    return requiredText(name);
}

double CaseObject::requiredNumber(const QString &name) const
{
    if (!m_object.value(name).isDouble())
        complain(name, u"is no number"_s);
    return m_object.value(name).toDouble();
}

std::optional<qint64> CaseObject::integer(const QString &name) const
{
    if (!has(name))
        return std::nullopt;
    // Two defaults: what is no integer gives back either.
    const QJsonValue value = m_object.value(name);
    if (value.toInteger(0) != value.toInteger(1))
        complain(name, u"is no integer"_s);
    return value.toInteger();
}

bool CaseObject::flag(const QString &name) const
{
    if (has(name) && !m_object.value(name).isBool())
        complain(name, u"is neither true nor false"_s);
    return m_object.value(name).toBool();
}

CaseObject CaseObject::object(const QString &name) const
{
    return { m_object.value(name), placeOf(name), m_complaints };
}

QJsonArray CaseObject::list(const QString &name) const
{
    if (has(name) && !m_object.value(name).isArray())
        complain(name, u"is no list"_s);
    return m_object.value(name).toArray();
}

QList<std::pair<QString, QString>> CaseObject::pairs(const QString &name) const
{
    QList<std::pair<QString, QString>> pairs;
    for (const QJsonValue &value : list(name)) {
        const QJsonArray pair = value.toArray();
        if (pair.size() != 2 || !pair[0].isString() || !pair[1].isString())
            complain(name, u"holds something else than pairs of texts"_s);
        pairs.append({ pair[0].toString(), pair[1].toString() });
    }
    return pairs;
}

} // namespace glimmet
