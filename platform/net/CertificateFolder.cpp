#include "platform/net/CertificateFolder.h"

#include <QDirIterator>
#include <QFile>

namespace glimmet {

bool isCertificateFolder(const QByteArray &path)
{
    static const QString digit = QStringLiteral("[0-9a-f]");
    return !path.isEmpty()
        && QDirIterator(QFile::decodeName(path), { digit.repeated(8) + QStringLiteral(".[0-9]") },
            QDir::Files | QDir::CaseSensitive)
               .hasNext();
}

} // namespace glimmet
