#include "platform/Utf8.h"

#include <QStringConverter>

namespace glimmet {
namespace {

constexpr auto wholeText = QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom;

} // namespace

std::optional<QByteArray> exactUtf8(const QString &text)
{
    QStringEncoder encoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QByteArray bytes = encoder(text);
    return encoder.hasError() ? std::nullopt : std::optional(bytes);
}

std::optional<QString> textFromUtf8(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringConverter::Utf8, wholeText);
    const QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

} // namespace glimmet
