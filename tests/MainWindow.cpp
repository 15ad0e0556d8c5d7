// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebProbe.h"

#include "Widgets.h"

#include <QApplication>
#include <QDropEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>

namespace brindlemark {

MainWindow::MainWindow() : web(form<FrmWeb>())
{
    web->Show();
    if (!QTest::qWaitForWindowExposed(web, Patience))
        QTest::qFail("the main window never came up", __FILE__, __LINE__);
}

MainWindow::~MainWindow()
{
    if (QGuiApplication::overrideCursor())
        QTest::qFail("an hourglass was left behind", __FILE__, __LINE__);
    unloadAll();
}

void MainWindow::press(Tool wanted) const
{
    QTest::mouseClick(web->Toolbar1->widgetForAction(web->toolbarButton(wanted)), Qt::LeftButton);
}

void MainWindow::choose(QMenu* menu, QAction* entry) const
{
    QMenuBar* bar = web->MenuBar1;
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
    if (!QTest::qWaitForWindowExposed(menu, Patience)) {
        QTest::qFail("the menu does not open", __FILE__, __LINE__);
        return;
    }
    // An entry of a menu within the menu: open that one first.
    for (QMenu* inner : menu->findChildren<QMenu*>()) {
        if (inner->actions().contains(entry)) {
            menu->setActiveAction(inner->menuAction());
            QTest::keyClick(menu, Qt::Key_Right);
            menu = inner;
            break;
        }
    }
    menu->setActiveAction(entry);
    QTest::keyClick(menu, Qt::Key_Return);
}

void MainWindow::showTab(FrmWeb::Tab tab) const
{
    QTabBar* bar = web->SSTab1->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(tab).center());
}

void MainWindow::type(const QString& text) const
{
    QTest::keyClicks(web->RichTextBox1, text);
}

void MainWindow::typeOnSurface(const QString& text) const
{
    DocumentSurface* surface = web->WebBrowser1;
    if (!QTest::qWaitFor([surface] { return surface->inputWidget() != nullptr; })) {
        QTest::qFail("the surface never came up", __FILE__, __LINE__);
        return;
    }
    QTest::mouseClick(surface->inputWidget(), Qt::LeftButton);
    typeAtCaretOfSurface(text);
}

void MainWindow::typeAtCaretOfSurface(const QString& text) const
{
    DocumentSurface* surface = web->WebBrowser1;
    // Before that the engine drops keys.
    if (!QTest::qWaitFor(
            [surface] { return surface->inputWidget()->testAttribute(Qt::WA_InputMethodEnabled); }))
        QTest::qFail("the surface takes no keys", __FILE__, __LINE__);
    const auto length = [surface] {
        return probe(surface)
            .evaluate(QStringLiteral("document.body.textContent.length"))
            .value_or(-1)
            .toInt();
    };
    const int before = length();
    QTest::keyClicks(surface->inputWidget(), text);
    // Keys reach the page a moment later.
    if (!QTest::qWaitFor([&] { return length() == before + text.size(); }))
        QTest::qFail("what was typed does not show", __FILE__, __LINE__);
}

void MainWindow::open(const QString& path)
{
    doors.answerOpen(path);
    press(Tool::Open);
}

void MainWindow::drop(const QStringList& paths, std::optional<int> character) const
{
    QMimeData dragged;
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls << QUrl::fromLocalFile(path);
    dragged.setUrls(urls);
    const RichTextBox* text = web->RichTextBox1;
    QWidget* box = text->viewport();
    QPoint place = box->rect().center();
    if (character) {
        const long position = text->SendScintilla(RichTextBox::SCI_POSITIONRELATIVE, 0UL, long(*character));
        place = {int(text->SendScintilla(RichTextBox::SCI_POINTXFROMPOSITION, 0UL, position)) + 1,
                 int(text->SendScintilla(RichTextBox::SCI_POINTYFROMPOSITION, 0UL, position)) + 6};
    }
    const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
    QDragEnterEvent enter(place, offered, &dragged, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(place, offered, &dragged, Qt::LeftButton, Qt::NoModifier);
    QSignalSpy dropped(web->RichTextBox1, &RichTextBox::FilesDropped);
    QApplication::sendEvent(box, &enter);
    QApplication::sendEvent(box, &drop);
    if (!enter.isAccepted() || !drop.isAccepted() || !QTest::qWaitFor([&] { return !dropped.isEmpty(); }))
        QTest::qFail("the drop is not taken", __FILE__, __LINE__);
}

void MainWindow::saveAs(const QString& path)
{
    doors.answerSave(path);
    press(Tool::SaveAs);
}

void unloadAll()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* tool = qobject_cast<Form*>(window); tool && !qobject_cast<FrmWeb*>(tool))
            tool->Unload();
    }
    if (isLoaded<FrmWeb>())
        delete form<FrmWeb>(); // its unload would end the program
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace brindlemark
