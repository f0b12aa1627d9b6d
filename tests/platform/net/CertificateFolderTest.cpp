#include "platform/net/CertificateFolder.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

class CertificateFolder : public testing::Test {
protected:
    QByteArray path() const { return QFile::encodeName(m_folder.path()); }
    void put(const QString &name) const
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(CertificateFolder, isUsableWithANameThatIsMadeOfACertificate)
{
    put(QStringLiteral("Some_Authority.pem"));
    put(QStringLiteral("0a1b2c3d.0"));

    EXPECT_TRUE(isCertificateFolder(path()));
}

TEST_F(CertificateFolder, isUsableByLinksToo)
{
    put(QStringLiteral("Some_Authority.pem"));
    QFile::link(
        QStringLiteral("Some_Authority.pem"), QFile::decodeName(path()) + QStringLiteral("/ffffffff.1"));

    EXPECT_TRUE(isCertificateFolder(path()));
}

TEST_F(CertificateFolder, isUselessWithOneFileForAll)
{
    put(QStringLiteral("ca-certificates.crt"));
    put(QStringLiteral("0a1b2c3.0"));
    put(QStringLiteral("0a1b2c3g.0"));
    put(QStringLiteral("0A1B2C3D.0"));

    EXPECT_FALSE(isCertificateFolder(path()));
}

TEST_F(CertificateFolder, isUselessEmptyOrMissing)
{
    EXPECT_FALSE(isCertificateFolder(path()));
    EXPECT_FALSE(isCertificateFolder(path() + "/none"));
    EXPECT_FALSE(isCertificateFolder(nullptr));
}

} // namespace
} // namespace glimmet
