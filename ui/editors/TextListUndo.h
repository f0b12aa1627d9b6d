#pragma once

#include "ui/editors/Undo.h"

namespace glimmet {

/// For a list of texts. A key is the text itself.
class TextListUndo : public glimmet::Undo { // Whole, as it is registered under that name.
    Q_OBJECT
    QML_ANONYMOUS

protected:
    /// What the ticker has for the list.
    struct List {
        void (TickerViewModel::*changed)();
        QStringList (TickerViewModel::*read)() const;
        void (TickerViewModel::*write)(const QStringList &texts);
        void (TickerViewModel::*remove)(const QString &text);
    };

    TextListUndo(const List &list, QObject *parent)
        : Undo(parent)
        , m_list(list)
    {
    }

    void watch(TickerViewModel &ticker) override;
    QStringList readList() override;
    void removeFromList(const QString &key) override;
    void clearList() override;
    void writeList(const QList<ShownEntry> &entries, int returning) override;

private:
    const List m_list;
};

/// For the user's quotes.
class QuoteUndo : public glimmet::TextListUndo {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit QuoteUndo(QObject *parent = nullptr);
};

/// For the symbols of prices.
class SymbolUndo : public glimmet::TextListUndo {
    Q_OBJECT
    QML_ELEMENT

public:
    explicit SymbolUndo(QObject *parent = nullptr);
};

} // namespace glimmet
