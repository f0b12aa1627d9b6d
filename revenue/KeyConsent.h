#pragma once

namespace glimmet {

/// Whether the key store may ask the user to open it: only for what the user does at this moment, and not
/// again for what was refused.
class KeyConsent {
public:
    enum class Act {
        ChoosingRevenue,
        EditingKey,
        AskingForIt, ///< the user presses the very button for it
    };

    /// The user turns to the field of a key.
    void beginEditing() { m_wasRefusedWhileEditing = false; }
    /// The store asks the user because of `act`.
    void noteAsking(Act act) { m_asked = act; }
    /// What was asked last was refused.
    void noteRefusal()
    {
        m_wasRefused = true;
        m_wasRefusedWhileEditing = m_wasRefusedWhileEditing || m_asked != Act::ChoosingRevenue;
    }
    /// The store is open: what was refused before is forgotten.
    void noteOpening() { m_wasRefused = m_wasRefusedWhileEditing = false; }

    bool isGivenBy(Act act) const
    {
        switch (act) {
        case Act::ChoosingRevenue:
            return !m_wasRefused;
        case Act::EditingKey:
            return !m_wasRefusedWhileEditing;
        case Act::AskingForIt:
            return true;
        }
        return false;
    }

private:
    Act m_asked = Act::AskingForIt;
    bool m_wasRefused = false;
    bool m_wasRefusedWhileEditing = false;
};

} // namespace glimmet
