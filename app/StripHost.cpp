#include "app/StripHost.h"

#include "app/StripPicture.h"
#include "platform/desktop/BarColorsWatch.h"

namespace glimmet {
namespace {

/// Beside the buttons in the corner of a window that fills the screen.
constexpr int firstInset = 144;

} // namespace

StripHost::StripHost(MakeFace makeFace, AskForColors askForColors, QObject *parent)
    : MenuBarHost(parent)
    , m_makeFace(std::move(makeFace))
    , m_askForColors(std::move(askForColors))
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
    draw();
}

void StripHost::draw()
{
    if (m_face)
        m_face->setColors(m_barColors.value_or(stripColors(m_scheme)));
}

void StripHost::takeColors(const BarColors &colors)
{
    m_barColors = colors;
    draw();
}

void StripHost::setShown(bool shown)
{
    if (shown == m_isShown)
        return;
    m_isShown = shown;
    m_face = shown ? m_makeFace(m_inset) : nullptr;
    if (!m_face)
        return;
    m_colorsWatch = m_askForColors();
    if (m_colorsWatch)
        connect(m_colorsWatch.get(), &BarColorsWatch::found, this, &StripHost::takeColors);
    draw();
    m_face->setText(m_text);
    connect(m_face.get(), &StripFace::clicked, this, &StripHost::clicked);
    connect(m_face.get(), &StripFace::dragged, this, [this](int inset) { m_inset = inset; });
}

std::optional<QPoint> StripHost::anchor() const
{
    return m_face ? m_face->anchor() : std::nullopt;
}

} // namespace glimmet
