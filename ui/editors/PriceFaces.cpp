#include "ui/editors/PriceFaces.h"

namespace glimmet {

QList<int> PriceFaces::intervals()
{
    return { 5, 10, 30, 60 };
}

QString PriceFaces::intervalLabel(int seconds)
{
    return QString::number(seconds) + u's';
}

} // namespace glimmet
