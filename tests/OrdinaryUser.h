// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QString>
#include <unistd.h>

namespace brindlemark {

/// The superuser passes over permission bits: while this lives, the process is nobody, and so is the owner of
/// a folder. For anybody else it does nothing.
class OrdinaryUser
{
public:
    explicit OrdinaryUser(const QString& folder)
    {
        constexpr uid_t nobody = 65534;
        m_root = geteuid() == 0;
        m_ordinary = !m_root || (chown(QFile::encodeName(folder).constData(), nobody, nobody) == 0 &&
                                 setresuid(nobody, nobody, 0) == 0);
    }
    ~OrdinaryUser()
    {
        if (m_root && setresuid(0, 0, 0) != 0)
            qFatal("the superuser's rights did not come back");
    }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)

    /// Whether permission bits count now.
    bool ordinary() const { return m_ordinary; }

private:
    bool m_root = false;
    bool m_ordinary = false;
};

} // namespace brindlemark
