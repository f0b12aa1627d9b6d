#pragma once

#include <QString>
#include <QtGlobal>

namespace glimmet {

/// Stands for the user at the prompts of gnome-keyring, by its own library's mock. It is on the session bus
/// that the environment names, and must be told beforehand what the user will do.
class MockPrompter {
public:
    MockPrompter();
    ~MockPrompter();
    Q_DISABLE_COPY_MOVE(MockPrompter)

    /// Its unique name on the bus.
    QString name() const { return m_name; }
    /// How long the user takes.
    void setDelay(unsigned milliseconds);
    void expectPassword(const char *password);
    void expectCancel();
    /// Whether an expected prompt has not been shown yet.
    bool isExpecting() const;
    bool isPrompting() const;

private:
    QString m_name;
};

} // namespace glimmet
