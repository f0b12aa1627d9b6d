#pragma once

#include "core/TickerViewModel.h"

#include <QAbstractItemModel>
#include <QtQml/qqml.h>

/// Makes the ticker and its choices known to QML; their own folders know nothing of it.
namespace glimmet {

struct TickerViewModelForQml {
    Q_GADGET
    QML_FOREIGN(glimmet::TickerViewModel)
    QML_NAMED_ELEMENT(TickerViewModel)
    QML_UNCREATABLE("There is one ticker, and the panel is handed it.")
};

/// What the panel's own models are derived from; without it the linter does not know them.
struct AbstractItemModelForQml {
    Q_GADGET
    QML_FOREIGN(QAbstractItemModel)
    QML_ANONYMOUS
};

namespace TickerModesForQml {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(glimmet::TickerModes)
QML_NAMED_ELEMENT(TickerMode)
} // namespace TickerModesForQml

namespace RevenueProvidersForQml {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(glimmet::RevenueProviders)
QML_NAMED_ELEMENT(RevenueProvider)
} // namespace RevenueProvidersForQml

namespace RevenueModesForQml {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(glimmet::RevenueModes)
QML_NAMED_ELEMENT(RevenueMode)
} // namespace RevenueModesForQml

namespace RevenueMetricsForQml {
Q_NAMESPACE
QML_FOREIGN_NAMESPACE(glimmet::RevenueMetrics)
QML_NAMED_ELEMENT(RevenueMetric)
} // namespace RevenueMetricsForQml

} // namespace glimmet
