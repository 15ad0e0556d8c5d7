// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "shell/Document.h"
#include "source/EditedText.h"

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace brindlemark;

// The document without a window: its name, what counts as unsaved, files, and what is kept of it.

namespace {

/// A text that tells its document of changes, as the main window does it for the source box.
class PlainText : public EditedText
{
public:
    QByteArray Text() const override { return m_text; }
    Later textLater() const override
    {
        return [text = m_text] { return text; };
    }
    bool isEmpty() const override { return m_text.isEmpty(); }
    TextEncoding textEncoding() const override { return encodingOf(m_text); }
    void load(const QByteArray& text) override { type(text); }

    void type(const QByteArray& text)
    {
        m_text = text;
        if (document)
            document->textChanged();
    }

    Document* document = nullptr;

private:
    QByteArray m_text;
};

/// A document whose journal lies in a folder of its own.
struct Desk
{
    Desk() { text.document = &*document; }

    /// What the journal holds on the disk; empty without a file.
    QByteArray kept()
    {
        document->finishKeeping();
        QByteArray all;
        for (const QString& name : QDir(folder.path()).entryList({QStringLiteral("*.htm")}))
            all += readFile(folder.filePath(name));
        return all;
    }
    QString path(const QString& name) const { return files.filePath(name); }

    QTemporaryDir folder;
    QTemporaryDir files;
    PlainText text;
    std::optional<Document> document{std::in_place, text, QStringList{folder.path()}};
};

} // namespace

class TestDocumentModel : public QObject
{
    Q_OBJECT

private slots:
    void begins();
    void changes();
    void opens();
    void missingFile();
    void saves();
    void refusedSave();
    void emptyRecordLeavesTheText();
    void blank();
    void keeps();
    void keptEditOfTheSurface();
    void deletedAgain();
    void wantedText();
    void leftover();
};

void TestDocumentModel::begins()
{
    const Desk desk;
    QCOMPARE(desk.document->name(), QStringLiteral("Untitled"));
    QVERIFY(!desk.document->isNamed());
    QCOMPARE(desk.document->bareName(), QString());
    QVERIFY(!desk.document->isDirty());
}

void TestDocumentModel::changes()
{
    Desk desk;
    const qint64 before = desk.document->revision();
    desk.text.type("a");
    QVERIFY(desk.document->isDirty());
    QVERIFY(desk.document->revision() > before);
    desk.text.type(QByteArray());
    QVERIFY(!desk.document->isDirty());
    desk.text.type("b");
    desk.document->setDirty(false);
    desk.document->textTouched();
    QVERIFY(desk.document->isDirty());
}

void TestDocumentModel::opens()
{
    Desk desk;
    const QSignalSpy settled(&*desk.document, &Document::settled);
    writeFile(desk.path(QStringLiteral("page.htm")), "<P>\xE4\r\n");
    desk.document->open(desk.path(QStringLiteral("page.htm")));
    QCOMPARE(desk.text.Text(), QByteArray("<P>\xE4\r\n"));
    QCOMPARE(desk.document->name(), desk.path(QStringLiteral("page.htm")));
    QCOMPARE(desk.document->bareName(), QStringLiteral("page.htm"));
    QVERIFY(desk.document->isNamed());
    QVERIFY(desk.document->isDirty()); // loading is a change of the text
    QCOMPARE(settled.count(), 1);
    desk.document->keepChanges(true);
    QCOMPARE(desk.kept(), QByteArray()); // the file has it
}

void TestDocumentModel::missingFile()
{
    Desk desk;
    desk.text.type("a");
    desk.document->keep();
    QVERIFY_THROWS_EXCEPTION(RuntimeError, desk.document->open(desk.path(QStringLiteral("none.htm"))));
    QCOMPARE(desk.document->name(), QStringLiteral("Untitled"));
    QVERIFY(desk.text.isEmpty());
    QVERIFY(!desk.document->isDirty());
    QCOMPARE(desk.kept(), QByteArray());
}

void TestDocumentModel::saves()
{
    Desk desk;
    const QString path = desk.path(QStringLiteral("page.htm"));
    desk.text.type("<P>\xE4");
    desk.document->keep();
    QVERIFY(desk.kept().startsWith("<P>\xE4"));
    desk.document->save(path, desk.text.Text(), true);
    QCOMPARE(readFile(path), QByteArray("<P>\xE4\r\n"));
    QCOMPARE(desk.document->name(), path);
    QVERIFY(!desk.document->isDirty());
    QCOMPARE(desk.kept(), QByteArray());
}

void TestDocumentModel::refusedSave()
{
    Desk desk;
    desk.text.type("a");
    desk.document->keep();
    const QString nowhere = desk.path(QStringLiteral("none/page.htm"));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, desk.document->save(nowhere, "a", true));
    QCOMPARE(desk.document->name(), QStringLiteral("Untitled"));
    QVERIFY(desk.document->isDirty());
    QVERIFY(desk.kept().startsWith("a"));
}

/// Save on the tab Internet: the file is emptied, the text stays where it was.
void TestDocumentModel::emptyRecordLeavesTheText()
{
    Desk desk;
    const QString path = desk.path(QStringLiteral("page.htm"));
    desk.text.type("a");
    desk.document->keep();
    desk.document->save(path, QByteArray(), false);
    QCOMPARE(readFile(path), QByteArray("\r\n"));
    QVERIFY(!desk.document->isDirty());
    QCOMPARE(desk.text.Text(), QByteArray("a"));
    QVERIFY(desk.kept().startsWith("a"));
}

void TestDocumentModel::blank()
{
    Desk desk;
    desk.document->save(desk.path(QStringLiteral("page.htm")), "a", true);
    desk.text.type("b");
    desk.document->keep();
    desk.text.document = nullptr; // whether or not the text tells of it
    desk.document->blank();
    QVERIFY(desk.text.isEmpty());
    QCOMPARE(desk.document->name(), QStringLiteral("Untitled"));
    QVERIFY(!desk.document->isDirty());
    QCOMPARE(desk.kept(), QByteArray());
}

void TestDocumentModel::keeps()
{
    Desk desk;
    desk.text.type("one");
    desk.document->keepChanges(true);
    QVERIFY(desk.kept().startsWith("one"));
    desk.document->save(desk.path(QStringLiteral("page.htm")), "one", true);
    desk.document->textTouched();
    desk.document->keepChanges(true);
    QCOMPARE(desk.kept(), QByteArray()); // unsaved by a click alone: the file has this text
    desk.text.type("two");
    desk.document->keepChanges(false);
    QVERIFY(desk.kept().startsWith("two"));
}

void TestDocumentModel::keptEditOfTheSurface()
{
    Desk desk;
    desk.text.type("source");
    desk.document->keepEdit(QStringLiteral("edit"));
    QVERIFY(desk.kept().startsWith("edit"));
    desk.text.type("other");
    desk.document->keepChanges(false);
    QVERIFY(desk.kept().startsWith("edit")); // newer than the source behind it
    desk.document->surfaceWritten();
    desk.document->keepChanges(false);
    QVERIFY(desk.kept().startsWith("other"));
    desk.document->keepEdit(QStringLiteral("edit"));
    desk.text.type("source again");
    desk.document->keepChanges(true);
    QVERIFY(desk.kept().startsWith("source again"));
    desk.document->keepEdit(QStringLiteral("edit"));
    desk.document->save(desk.path(QStringLiteral("page.htm")), "edit", true);
    desk.text.type("next");
    desk.document->keepChanges(false);
    QVERIFY(desk.kept().startsWith("next"));
}

void TestDocumentModel::deletedAgain()
{
    Desk desk;
    desk.text.type("a");
    desk.document->keepChanges(true);
    QVERIFY(!desk.kept().isEmpty());
    desk.text.type(QByteArray());
    desk.document->keepChanges(false);
    QVERIFY(!desk.kept().isEmpty()); // the surface may have it
    desk.document->keepChanges(true);
    QCOMPARE(desk.kept(), QByteArray());
}

/// A text that the user wanted saved, and that came to no file, outlives the document.
void TestDocumentModel::wantedText()
{
    Desk desk;
    desk.text.type("a");
    desk.document->keepIfToBeSaved();
    QCOMPARE(desk.kept(), QByteArray());
    desk.document->setToBeSaved(true);
    desk.document->keepIfToBeSaved();
    QVERIFY(desk.kept().startsWith("a"));
    desk.document->blank();
    QVERIFY(desk.kept().startsWith("a"));

    desk.text.type("b");
    desk.document->setToBeSaved(true);
    desk.document->keepIfToBeSaved();
    desk.document->save(desk.path(QStringLiteral("page.htm")), "b", true);
    QVERIFY(desk.kept().startsWith("a")); // the second is in its file
    QVERIFY(!desk.kept().contains('b' + QByteArray("\n<!--")));

    desk.text.type("c");
    desk.document->setToBeSaved(true);
    desk.document->keepIfToBeSaved();
    desk.text.document = nullptr;
    desk.document.reset();
    PlainText text;
    Document next(text, {desk.folder.path()});
    QByteArrayList left;
    while (const auto found = next.takeLeftover()) {
        left << found->text;
        next.dropLeftover();
        next.finishKeeping();
    }
    std::sort(left.begin(), left.end());
    QCOMPARE(left, (QByteArrayList{"a", "c"}));
}

void TestDocumentModel::leftover()
{
    Desk desk;
    desk.document->bringBack({.document = QStringLiteral("/pages/page.htm"), .text = "a"});
    QCOMPARE(desk.document->name(), QStringLiteral("/pages/page.htm"));
    QVERIFY(desk.document->isDirty());
    desk.document->blank();
    desk.document->bringBack({.document = QString(), .text = "half", .whole = false});
    QCOMPARE(desk.document->name(), QStringLiteral("Untitled"));
    QCOMPARE(desk.text.Text(), QByteArray("half"));
}

QTEST_GUILESS_MAIN(TestDocumentModel)
#include "tst_documentmodel.moc"
