#pragma once

#include <QtGlobal>
#include <vector>

class QsciScintillaBase;

/// A stretch of the text, as the component counts it.
struct TextRange
{
    qsizetype start = 0;
    qsizetype length = 0;

    qsizetype end() const { return start + length; }
    bool operator==(const TextRange&) const = default;
};

/// A stretch of one colour (a colour number, 0x00BBGGRR); 0, black, is the text's own.
struct ColorRun
{
    TextRange range;
    int color = 0;
};

/// The colours of the characters in the component. They are no part of the text: they raise no notification
/// and are never undone.
class TextColors
{
public:
    explicit TextColors(QsciScintillaBase& component);

    void paint(TextRange range, int color);
    std::vector<ColorRun> in(TextRange range) const;
    int at(qsizetype position) const;

private:
    long send(unsigned message, qsizetype first = 0, qsizetype second = 0) const;

    QsciScintillaBase& m_component;
};
