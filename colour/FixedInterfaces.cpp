// SPDX-License-Identifier: GPL-3.0-or-later

#include "colour/FixedInterfaces.h"

#include "colour/Fade.h"
#include "services/Codes.h"

namespace brindlemark {

QString GetHexColor(int& color)
{
    const QString text = colorText(color);
    color /= 65536;
    return text;
}

QString HexPad6(int color)
{
    return hexNumber(color);
}

double HexToColor(QString& code)
{
    if (code.startsWith(u'#'))
        code = code.right(6);
    return parseColor(code);
}

int HexDigitValue(QChar digit)
{
    if (digit >= u'0' && digit <= u'9')
        return digit.unicode() - u'0';
    if (digit >= u'A' && digit <= u'F')
        return digit.unicode() - u'A' + 10;
    return 0;
}

float HexToNumber(const QString& text)
{
    float number = 0;
    float place = 1;
    const QString digits = text.right(8);
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, place *= 16)
        number += float(HexDigitValue(digit->toUpper())) * place;
    return number;
}

QString FadeFive(int c1, int c2, int c3, int c4, int c5, const QString& text, bool wavy)
{
    return fadeFive({splitColor(c1), splitColor(c2), splitColor(c3), splitColor(c4), splitColor(c5)}, text,
                    wavy);
}

QString FadeFiveRgb(int r1, int g1, int b1, int r2, int g2, int b2, int r3, int g3, int b3, int r4, int g4,
                    int b4, int r5, int g5, int b5, const QString& text, bool wavy)
{
    return fadeFive({{{r1, g1, b1}, {r2, g2, b2}, {r3, g3, b3}, {r4, g4, b4}, {r5, g5, b5}}}, text, wavy);
}

QString FadeTwoRgb(int r1, int g1, int b1, int r2, int g2, int b2, const QString& text, bool wavy)
{
    return fadeTwo({r1, g1, b1}, {r2, g2, b2}, text, wavy);
}

QString SplitPairFade(int first, int second, const QString& text, bool mode, const TwoColorFade& fade)
{
    const Channels a = splitColor(first);
    const Channels b = splitColor(second);
    return fade(a.red, a.green, a.blue, b.red, b.green, b.blue, text, mode);
}

} // namespace brindlemark
