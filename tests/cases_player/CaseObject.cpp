#include "tests/cases_player/CaseObject.h"

namespace glimmet {

using namespace Qt::StringLiterals;

CaseObject::CaseObject(const QJsonValue &value, const QString &place, QStringList &complaints)
    : m_object(value.toObject())
    , m_place(place)
    , m_complaints(&complaints)
{
    if (!value.isObject())
        complaints.append((place.isEmpty() ? u"the file"_s : place) + " is no object"_L1);
}

QString CaseObject::placeOf(const QString &name) const
{
    return m_place.isEmpty() ? name : m_place + u'.' + name;
}

void CaseObject::complain(const QString &name, const QString &what) const
{
    m_complaints->append(placeOf(name) + u' ' + what);
}

QString CaseObject::requiredText(const QString &name) const
{
    if (!m_object.value(name).isString())
        complain(name, u"is no text"_s);
    return m_object.value(name).toString();
}

std::optional<QString> CaseObject::text(const QString &name) const
{
    return has(name) ? std::optional(requiredText(name)) : std::nullopt;
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
    // Whatever is no integer gives the default back, this one and that.
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
    return { m_object.value(name), placeOf(name), *m_complaints };
}

QJsonArray CaseObject::list(const QString &name) const
{
    if (has(name) && !m_object.value(name).isArray())
        complain(name, u"is no list"_s);
    return m_object.value(name).toArray();
}

QList<CaseObject> CaseObject::objects(const QString &name) const
{
    QList<CaseObject> objects;
    for (const QJsonValue &value : list(name))
        objects.append({ value, placeOf(name) + u"[%1]"_s.arg(objects.size()), *m_complaints });
    return objects;
}

QStringList CaseObject::texts(const QString &name) const
{
    QStringList texts;
    for (const QJsonValue &value : list(name)) {
        if (!value.isString())
            complain(name, u"holds something else than texts"_s);
        texts.append(value.toString());
    }
    return texts;
}

QList<double> CaseObject::numbers(const QString &name) const
{
    QList<double> numbers;
    for (const QJsonValue &value : list(name)) {
        if (!value.isDouble())
            complain(name, u"holds something else than numbers"_s);
        numbers.append(value.toDouble());
    }
    return numbers;
}

CaseObject::Pairs CaseObject::pairs(const QString &name) const
{
    Pairs pairs;
    for (const QJsonValue &value : list(name)) {
        const QJsonArray pair = value.toArray();
        if (pair.size() != 2 || !pair[0].isString() || !pair[1].isString())
            complain(name, u"holds something else than pairs of texts"_s);
        pairs.append({ pair[0].toString(), pair[1].toString() });
    }
    return pairs;
}

} // namespace glimmet
