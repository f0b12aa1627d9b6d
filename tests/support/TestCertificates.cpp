#include "tests/support/TestCertificates.h"

#include "platform/Fatal.h"

#include <QFile>
#include <QSslCertificate>
#include <QSslKey>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

QByteArray contentOf(const QString &name)
{
    QFile file(QStringLiteral(GLIMMET_TEST_CERTIFICATES) + u'/' + name);
    if (!file.open(QIODevice::ReadOnly))
        fatal("the tests' certificates have not been made");
    return file.readAll();
}

QString nameOf(HttpsServer::Certificate certificate)
{
    switch (certificate) {
    case HttpsServer::Certificate::Good:
        return u"good"_s;
    case HttpsServer::Certificate::OtherHost:
        return u"other-host"_s;
    case HttpsServer::Certificate::Expired:
        return u"expired"_s;
    case HttpsServer::Certificate::UnknownAuthority:
        return u"unknown-authority"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

QSslConfiguration encryptionWith(HttpsServer::Certificate certificate)
{
    const QString name = nameOf(certificate);
    QSslConfiguration encryption = QSslConfiguration::defaultConfiguration();
    encryption.setLocalCertificate(QSslCertificate(contentOf(name + u".pem"_s)));
    encryption.setPrivateKey(QSslKey(contentOf(name + u".key"_s), QSsl::Ec));
    encryption.setPeerVerifyMode(QSslSocket::VerifyNone);
    return encryption;
}

QByteArray testAuthority()
{
    return contentOf(u"authority.pem"_s);
}

} // namespace glimmet
