// SPDX-License-Identifier: GPL-3.0-or-later

#include "Random.h"

#include <QTest>

namespace brindlemark {

void addSeeds()
{
    QTest::addColumn<quint32>("seed");
    QList<quint32> seeds = {1, 22, 333, 4444};
    bool wanted = false;
    const quint32 seed = qEnvironmentVariable("BRINDLEMARK_SEED").toUInt(&wanted);
    if (wanted) {
        seeds = {seed};
    } else {
        seeds << QRandomGenerator::global()->generate();
    }
    for (const quint32 each : seeds)
        QTest::addRow("seed %u", each) << each;
}

QString Random::text(int mostPieces)
{
    static constexpr const char16_t* Pieces[] = {
        u"a",       u"B",      u"7",      u"word",       u"two words",
        u" ",       u"\t",     u",",      u";",          u"=",
        u"[",       u"]",      u"\"",     u"'",          u"<B>",
        u"</FONT>", u"-->",    u"<!-- -", u"&amp;",      u"#",
        u"$",       u"\\",     u"/",      u"%1",         u"\x01",
        u"\u00A0",  u"\u00E9", u"\u00C9", u"e\u0301",    u"\u20AC",
        u"\u05D0",  u"\uFEFF", u"\u4E2D", u"\U0001F600", u"\U0001F469\u200D\U0001F52C"};
    QString text;
    for (int pieces = number(mostPieces + 1); pieces > 0; --pieces)
        text += QString::fromUtf16(of(Pieces));
    return text;
}

} // namespace brindlemark
