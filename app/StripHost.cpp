#include "app/StripHost.h"

namespace glimmet {
namespace {

/// Beside the buttons in the corner of a window that fills the screen.
constexpr int firstInset = 144;

} // namespace

StripHost::StripHost(MakeFace makeFace, QObject *parent)
    : MenuBarHost(parent)
    , m_makeFace(std::move(makeFace))
    , m_inset(firstInset)
{
}

StripHost::~StripHost() = default;

QString StripHost::place() const
{
    return m_isShown && !m_face ? QStringLiteral("nothing") : QStringLiteral("a strip");
}

void StripHost::setText(const QString &text)
{
    m_text = text;
    if (m_face)
        m_face->setText(text);
}

void StripHost::setColorScheme(ColorScheme scheme)
{
    m_scheme = scheme;
    if (m_face)
        m_face->setColorScheme(scheme);
}

void StripHost::setShown(bool shown)
{
    if (shown == m_isShown)
        return;
    m_isShown = shown;
    m_face = shown ? m_makeFace(m_inset) : nullptr;
    if (!m_face)
        return;
    m_face->setColorScheme(m_scheme);
    m_face->setText(m_text);
    connect(m_face.get(), &StripFace::clicked, this, &StripHost::clicked);
    connect(m_face.get(), &StripFace::dragged, this, [this](int inset) { m_inset = inset; });
}

std::optional<QPoint> StripHost::anchor() const
{
    return m_face ? m_face->anchor() : std::nullopt;
}

} // namespace glimmet
