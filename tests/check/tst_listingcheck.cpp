// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/ListingCheck.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace brindlemark;

namespace {

QByteArray fileText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return file.readAll();
}

} // namespace

class TestListingCheck : public QObject
{
    Q_OBJECT

private slots:
    void pages();
};

void TestListingCheck::pages()
{
    const QDir folder(QStringLiteral(TEST_DATA "/pages"));
    for (const QString& name : folder.entryList({"*.htm"})) {
        const QByteArray html = fileText(folder.filePath(name));
        const CheckReport report = checkListing(html, CheckLimits());
        qInfo().noquote() << "#####" << name << report.characters << report.words;
        for (const Finding& finding : report.findings)
            qInfo().noquote() << ruleText(finding.rule).id << finding.what << html.left(finding.place.start).count('\n') + 1 << html.sliced(finding.place.start, qMin<qsizetype>(finding.place.length, 60)) << finding.mend.size();
    }
}

QTEST_APPLESS_MAIN(TestListingCheck)
#include "tst_listingcheck.moc"
