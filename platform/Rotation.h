#pragma once

#include "platform/CheckedInteger.h"

namespace glimmet {

/// Which one of several entries is on show, and for how many ticks it has been.
class Rotation {
public:
    /// Counts a tick. True where the entry has been there for `interval` of them; the count then begins anew.
    bool tick(qint64 interval)
    {
        m_ticks = checkedSum(m_ticks, 1);
        if (m_ticks < interval)
            return false;
        m_ticks = 0;
        return true;
    }

    /// Any number: entries may have gone since it was chosen.
    qint64 index() const { return m_index; }
    void setIndex(qint64 index) { m_index = index; }
    /// Which of `count` entries (at least 1) is on show.
    qsizetype among(qsizetype count) const { return wrapped(m_index, count); }
    /// The index after this one; the same where there is no other entry.
    qint64 next(qsizetype count) const
    {
        return count < 2 ? m_index : wrapped(checkedSum(m_index, 1), count);
    }

private:
    qint64 m_ticks = 0;
    qint64 m_index = 0;
};

} // namespace glimmet
