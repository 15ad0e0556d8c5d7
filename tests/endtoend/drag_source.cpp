// SPDX-License-Identifier: GPL-3.0-or-later

// Another program's window from which things are dragged: files, an address, a text. Tells on standard output
// what the place under the pointer would do with them ("over copy", "over none") and what came of the drop
// ("dropped copy"), one line each.
//
// drag_source <kind> <what ...>: kind is "files", "address", "text" or "html".

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>
#include <iostream>

namespace {

const char* name(Qt::DropAction action)
{
    switch (action) {
    case Qt::CopyAction:
        return "copy";
    case Qt::MoveAction:
        return "move";
    case Qt::LinkAction:
        return "link";
    default:
        return "none";
    }
}

class Source : public QWidget
{
public:
    explicit Source(const QStringList& what)
    {
        setWindowTitle(QStringLiteral("Drag source"));
        resize(120, 80);
        QList<QUrl> urls;
        for (const QString& each : what.mid(1))
            urls << (what.first() == QLatin1String("files") ? QUrl::fromLocalFile(each) : QUrl(each));
        m_text = what.mid(1).join(u'\n');
        if (what.first() == QLatin1String("html")) {
            m_html = m_text;
            m_text = QStringLiteral("plain");
        } else if (what.first() != QLatin1String("text")) {
            m_urls = urls;
        }
    }

protected:
    void mousePressEvent(QMouseEvent*) override { std::cout << "held" << std::endl; }

    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (!(event->buttons() & Qt::LeftButton))
            return;
        auto* dragged = new QMimeData;
        dragged->setText(m_text); // a file manager gives paths as text too
        if (!m_urls.isEmpty())
            dragged->setUrls(m_urls);
        if (!m_html.isEmpty())
            dragged->setHtml(m_html);
        auto* drag = new QDrag(this);
        drag->setMimeData(dragged);
        connect(drag, &QDrag::actionChanged,
                [](Qt::DropAction action) { std::cout << "over " << name(action) << std::endl; });
        // What a file manager offers; it would delete the files after a move.
        const Qt::DropAction done =
            drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::MoveAction);
        std::cout << "dropped " << name(done) << std::endl;
    }

private:
    QString m_text;
    QString m_html;
    QList<QUrl> m_urls;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    Source source(QApplication::arguments().mid(1));
    source.show();
    return QApplication::exec();
}
