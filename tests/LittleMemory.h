// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <malloc.h>
#include <sys/resource.h>

namespace brindlemark {

/// Large pieces come from the system and go back to it, so that none that was freed serves again.
inline const bool LargePiecesComeFromTheSystem = mallopt(M_MMAP_THRESHOLD, 1 << 20) == 1;

/// The program gets no more than `bytes` of memory from the system while this lives.
class LittleMemory
{
public:
    explicit LittleMemory(rlim_t bytes)
    {
        QFile pages(QStringLiteral("/proc/self/statm"));
        const bool known = pages.open(QIODevice::ReadOnly);
        const rlim_t used = known ? pages.readAll().split(' ').first().toULongLong() * 4096 : 0;
        getrlimit(RLIMIT_AS, &m_limit);
        rlimit little = m_limit;
        little.rlim_cur = used + bytes;
        setrlimit(RLIMIT_AS, &little);
    }
    ~LittleMemory() { setrlimit(RLIMIT_AS, &m_limit); }
    Q_DISABLE_COPY_MOVE(LittleMemory)

private:
    rlimit m_limit{};
};

} // namespace brindlemark
