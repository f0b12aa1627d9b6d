#pragma once

#include "ui/editors/Undo.h"

namespace glimmet {

/// For the user's quotes. A key is the quote itself.
class QuoteUndo : public glimmet::Undo { // Whole, as it is registered under that name.
    Q_OBJECT
    QML_ELEMENT

public:
    using Undo::Undo;

protected:
    void watch(TickerViewModel &ticker) override;
    QStringList readList() override;
    void removeFromList(const QString &key) override;
    void clearList() override;
    void writeList(const QList<ShownEntry> &entries, int returning) override;
};

} // namespace glimmet
