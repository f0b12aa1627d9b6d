#include "platform/keys/ApiKey.h"

#include "platform/Text.h"

namespace glimmet {

bool ApiKey::isBlank() const
{
    return isAllBlank(*m_key);
}

} // namespace glimmet
