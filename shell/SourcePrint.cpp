// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/SourcePrint.h"

#include "platform/ColorNumber.h"
#include "platform/DesktopLook.h"
#include "platform/RuntimeError.h"
#include "source/TextEncoding.h"

#include <QFontMetricsF>
#include <QPageRanges>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

namespace brindlemark {

namespace {

constexpr QColor Beside(0x70, 0x70, 0x70); // the numbers, and the line below the head

constexpr double SmallestPrint = 5; // points
constexpr double LargestPrint = 24;

/// A tab stands for up to so many blanks.
constexpr int TabWidth = 8;

/// The head takes so many rows.
constexpr double HeadRows = 1.8;

/// So many characters of a line are laid out at once.
constexpr qsizetype LongestLayout = 4000;

constexpr QByteArrayView ByteOrderMark = "\xEF\xBB\xBF";

RuntimeError noPages()
{
    return {ErrorNumber::PathFileAccess, QStringLiteral("The printer takes no pages")};
}

/// Where a line ends, and where the next one begins.
struct LineEnd
{
    qsizetype end = 0;
    qsizetype next = 0;
};

LineEnd lineEnd(QByteArrayView text, qsizetype start)
{
    const auto* const at = std::find_if(text.begin() + start, text.end(),
                                        [](char byte) { return byte == '\r' || byte == '\n'; });
    const qsizetype end = at - text.begin();
    const bool isPair = text.size() - end >= 2 && text[end] == '\r' && text[end + 1] == '\n';
    return {end, std::min(end + (isPair ? 2 : 1), text.size())};
}

int lineCount(QByteArrayView text)
{
    int lines = 0;
    for (qsizetype start = 0; start < text.size(); start = lineEnd(text, start).next)
        ++lines;
    return lines;
}

/// A line's characters, and those that aren't black.
struct PrintedLine
{
    QString text;
    QList<QTextLayout::FormatRange> formats;
};

/// Puts a source on paper, from the first line to the last.
class SourcePrinter
{
public:
    SourcePrinter(QPagedPaintDevice& device, const PrintedSource& source);

    void print(const std::function<void(double done)>& progress);

private:
    PrintedLine lineAt(TextRange bytes);
    void printLine(const PrintedLine& line, int number);
    void layOut(const PrintedLine& line, TextRange part);
    void printRow(const QTextLine& row, int number);
    void beginPage();
    void printHead();
    bool isWanted() const;

    QPagedPaintDevice& m_device;
    const PrintedSource& m_source;
    QFont m_font;
    QFontMetricsF m_metrics;
    QPainter m_painter;
    QTextLayout m_layout;
    double m_numbers = 0; // width of their column; all in the device's dots
    double m_textLeft = 0;
    double m_rowHeight = 0;
    double m_y = 0; // where the next row begins
    int m_page = 0;
    bool m_anyPainted = false;
    size_t m_run = 0; // the first of the colours that ends behind what was printed
};

QFont printFont(const PrintedSource& source)
{
    QFont font = source.font;
    font.setPointSizeF(std::clamp(font.pointSizeF(), SmallestPrint, LargestPrint));
    return font;
}

SourcePrinter::SourcePrinter(QPagedPaintDevice& device, const PrintedSource& source)
    : m_device(device), m_source(source), m_font(printFont(source)), m_metrics(m_font, &device),
      m_layout(QString(), m_font, &device)
{
    const double digit = m_metrics.horizontalAdvance(u'0');
    const auto digits = QString::number(lineCount(source.utf8)).size();
    m_numbers = digit * double(digits);
    m_textLeft = m_numbers + 2 * digit;
    m_rowHeight = m_metrics.lineSpacing();

    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(Qt::LeftToRight);
    option.setTabStopDistance(TabWidth * m_metrics.horizontalAdvance(u' '));
    m_layout.setTextOption(option);
}

void SourcePrinter::print(const std::function<void(double done)>& progress)
{
    if (!m_painter.begin(&m_device))
        throw noPages();
    m_painter.setFont(m_font);
    beginPage();
    const QByteArrayView text = m_source.utf8;
    int number = 0;
    for (qsizetype start = 0; start < text.size();) {
        const LineEnd end = lineEnd(text, start);
        printLine(lineAt({start, end.end - start}), ++number);
        start = end.next;
        progress(double(start) / double(text.size()));
    }
    m_painter.end();
}

/// Its text is put together piece by piece, as colours count bytes and formats characters.
PrintedLine SourcePrinter::lineAt(TextRange bytes)
{
    PrintedLine line;
    const QByteArrayView text = m_source.utf8;
    const std::vector<ColorRun>& runs = m_source.colors;
    qsizetype at = bytes.start;
    if (at == 0 && text.startsWith(ByteOrderMark))
        at = std::min(ByteOrderMark.size(), bytes.end());
    while (at < bytes.end()) {
        while (m_run < runs.size() && runs[m_run].range.end() <= at)
            ++m_run;
        const bool isColored = m_run < runs.size() && runs[m_run].range.start <= at;
        qsizetype end = bytes.end();
        if (m_run < runs.size())
            end = std::min(end, isColored ? runs[m_run].range.end() : runs[m_run].range.start);
        while (end < bytes.end() && isContinuation(text[end]))
            ++end;
        const QString piece = QString::fromUtf8(text.sliced(at, end - at));
        const QColor ink = isColored ? onWhitePaper(colorOf(runs[m_run].color)) : QColor(Qt::black);
        if (ink != Qt::black) {
            QTextCharFormat format;
            format.setForeground(ink);
            line.formats.append({int(line.text.size()), int(piece.size()), format});
        }
        line.text += piece;
        at = end;
    }
    return line;
}

/// A very long line is laid out in parts: each begins with the row that the one before could not fill.
void SourcePrinter::printLine(const PrintedLine& line, int number)
{
    qsizetype from = 0;
    do {
        const TextRange part = {from, std::min(line.text.size() - from, LongestLayout)};
        layOut(line, part);
        const int rows = m_layout.lineCount();
        const bool isRest = part.end() == line.text.size() || rows == 1;
        const int complete = isRest ? rows : rows - 1;
        for (int row = 0; row < complete; ++row)
            printRow(m_layout.lineAt(row), from == 0 && row == 0 ? number : 0);
        from = isRest ? part.end() : from + m_layout.lineAt(complete).textStart();
    } while (from < line.text.size());
}

void SourcePrinter::layOut(const PrintedLine& line, TextRange part)
{
    QList<QTextLayout::FormatRange> formats;
    for (QTextLayout::FormatRange range : line.formats) {
        const qsizetype start = std::max<qsizetype>(range.start, part.start);
        const qsizetype end = std::min<qsizetype>(range.start + range.length, part.end());
        if (start < end) {
            range.start = int(start - part.start);
            range.length = int(end - start);
            formats.append(range);
        }
    }
    const double width = std::max(m_device.width() - m_textLeft, 1.0);
    m_layout.setText(line.text.mid(part.start, part.length));
    m_layout.setFormats(formats);
    m_layout.beginLayout();
    for (QTextLine row = m_layout.createLine(); row.isValid(); row = m_layout.createLine())
        row.setLineWidth(width);
    m_layout.endLayout();
}

/// `number`: of the line that begins in the row; 0: it goes on there.
void SourcePrinter::printRow(const QTextLine& row, int number)
{
    const double height = std::max(m_rowHeight, row.height());
    if (m_y + height > m_device.height())
        beginPage();
    if (isWanted()) {
        if (number > 0) {
            const QString digits = QString::number(number);
            m_painter.setPen(Beside);
            m_painter.drawText(QPointF(m_numbers - m_metrics.horizontalAdvance(digits), m_y + row.ascent()),
                               digits);
        }
        m_painter.setPen(Qt::black);
        row.draw(&m_painter, QPointF(m_textLeft, m_y));
    }
    m_y += height;
}

bool SourcePrinter::isWanted() const
{
    return m_device.pageRanges().isEmpty() || m_device.pageRanges().contains(m_page);
}

void SourcePrinter::beginPage()
{
    ++m_page;
    if (isWanted()) {
        if (m_anyPainted && !m_device.newPage())
            throw noPages();
        m_anyPainted = true;
        printHead();
    }
    m_y = HeadRows * m_rowHeight;
}

void SourcePrinter::printHead()
{
    const QString number = QStringLiteral("Page %1").arg(m_page);
    const double right = m_device.width() - m_metrics.horizontalAdvance(number);
    const QString name = m_metrics.elidedText(m_source.name, Qt::ElideMiddle, right - m_textLeft);
    m_painter.setPen(Qt::black);
    m_painter.drawText(QPointF(0, m_metrics.ascent()), name);
    m_painter.drawText(QPointF(right, m_metrics.ascent()), number);
    const double thickness = std::max(m_device.logicalDpiY() / 144.0, 1.0);
    m_painter.fillRect(QRectF(0, m_rowHeight * 1.2, m_device.width(), thickness), Beside);
}

} // namespace

void printSource(QPagedPaintDevice& device, const PrintedSource& source,
                 const std::function<void(double done)>& progress)
{
    SourcePrinter(device, source).print(progress);
}

} // namespace brindlemark
