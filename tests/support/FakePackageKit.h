#pragma once

#include "tests/support/PrivateBus.h"

#include <QDBusVirtualObject>
#include <QHash>
#include <QList>
#include <QStringList>
#include <QVariantMap>

namespace glimmet {

/// A PackageKit of the test's own, for one package that owns /usr/bin/glimmet. It works on the test's thread,
/// so that whoever waits for it without going on waits forever.
class FakePackageKit final : public QDBusVirtualObject {
public:
    /// What happens at a method.
    struct Course {
        enum class Kind {
            Works,
            Fails, ///< with `code` and `details`
            Refuses, ///< answers with the error `details` instead of starting
            Hangs, ///< starts and says no more
            Dies, ///< leaves the bus instead of answering
            DiesAfterwards, ///< leaves the bus after the work, and comes back
        };
        Kind kind = Kind::Works;
        uint code = 0;
        QString details{};
        uint exit = 2;
    };

    explicit FakePackageKit(const PrivateBus &bus);
    ~FakePackageKit() override;
    Q_DISABLE_COPY_MOVE(FakePackageKit)

    QString installed = QStringLiteral("1.0");
    QString offered = QStringLiteral("1.1"); ///< empty: nothing is
    uint offeredInfo = 5; ///< PkInfoEnum; normal
    QString changes = QStringLiteral("Faster ✦"); ///< what is new in it
    bool installs = true; ///< else an installation "succeeds" without any effect
    QHash<QString, Course> courses; ///< by method; the others work

    /// Every method that was called on transactions, in order, without `SetHints`.
    QStringList calls() const { return m_calls; }
    bool wasCalled(const QString &method) const { return m_calls.contains(method); }
    /// How often a method was called.
    qsizetype count(const QString &method) const { return m_calls.count(method); }
    /// What was hinted before a method was called the last time.
    QStringList hintsOf(const QString &method) const { return m_hintsOfMethods.value(method); }
    QVariantList argumentsOf(const QString &method) const { return m_arguments.value(method); }
    /// Whether every transaction had one method only.
    bool hadOneMethodEach() const { return m_hadOneMethodEach; }

    /// The transaction that hangs goes on: says something, or ends.
    void tell(const QVariantMap &properties) const;
    void finish(uint exit) const;
    /// Whether a transaction with this method was started last and has worked, or hangs, or hangs at its
    /// creation.
    bool isAt(const QString &method) const { return m_heldMethod == method; }
    /// Where it is.
    QString heldPath() const { return m_held; }
    /// Leaves the bus, as a service that crashes.
    void die();
    void comeBack();
    void restart();

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    void start(const QDBusMessage &message);
    void work(const QDBusMessage &message);
    void answer(const QString &path, const QString &method);
    void signal(const QString &path, const QString &name, const QVariantList &values) const;
    void package(const QString &path, uint info, const QString &version, const QString &data) const;

    const PrivateBus &m_bus;
    QString m_connection;
    int m_lives = 0;
    int m_transactions = 0;
    bool m_hadOneMethodEach = true;
    QString m_held;
    QString m_heldMethod;
    QStringList m_calls;
    QHash<QString, QStringList> m_hints; ///< by path
    QHash<QString, QStringList> m_hintsOfMethods;
    QHash<QString, QVariantList> m_arguments;
    QStringList m_used; ///< the paths of transactions that have had their method
};

} // namespace glimmet
