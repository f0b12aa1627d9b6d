#include "platform/keys/ApiKey.h"

#include "platform/Text.h"

namespace glimmet {

bool ApiKey::isBlank() const
{
    return trimmedBlanks(m_key).isEmpty();
}

} // namespace glimmet
