#include "ui/editors/PriceLabels.h"

namespace glimmet {

QList<int> PriceLabels::intervals()
{
    return { 5, 10, 30, 60 };
}

QString PriceLabels::intervalLabel(int seconds)
{
    return QString::number(seconds) + u's';
}

} // namespace glimmet
