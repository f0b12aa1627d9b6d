#include "tests/platform/keys/MockPrompter.h"

#include <QLibrary>

#include <stdexcept>

namespace glimmet {
namespace {

/// The library comes with gnome-keyring; its headers are not needed for five functions.
template <typename Function> Function *function(const char *name)
{
    const QFunctionPointer address = QLibrary::resolve(QStringLiteral("gcr-base-3"), 1, name);
    if (!address)
        throw std::runtime_error(name);
    return reinterpret_cast<Function *>(address);
}

} // namespace

MockPrompter::MockPrompter()
    : m_name(QString::fromLatin1(function<const char *()>("gcr_mock_prompter_start")()))
{
}

MockPrompter::~MockPrompter()
{
    function<void()>("gcr_mock_prompter_stop")();
}

void MockPrompter::setDelay(unsigned milliseconds)
{
    function<void(unsigned)>("gcr_mock_prompter_set_delay_msec")(milliseconds);
}

void MockPrompter::expectPassword(const char *password)
{
    const void *noProperties = nullptr;
    function<void(const char *, ...)>("gcr_mock_prompter_expect_password_ok")(password, noProperties);
}

void MockPrompter::expectCancel()
{
    function<void()>("gcr_mock_prompter_expect_password_cancel")();
}

bool MockPrompter::isExpecting() const
{
    return function<int()>("gcr_mock_prompter_is_expecting")() != 0;
}

bool MockPrompter::isPrompting() const
{
    return function<int()>("gcr_mock_prompter_is_prompting")() != 0;
}

} // namespace glimmet
