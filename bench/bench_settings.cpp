// SPDX-License-Identifier: GPL-3.0-or-later

// Settings are read from the file at each use and written at each change, so one read must cost next to
// nothing, also of a file in which a user has saved many table styles. Beside the toolkit's own settings; and
// `ReplaceAll` of the services beside the string classes' replace.

#include "Measure.h"
#include "platform/Files.h"
#include "services/Profile.h"
#include "services/Text.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <string>

using namespace brindlemark;

namespace {

const QString Section = QStringLiteral("Color");
const QString Key = QStringLiteral("back");

/// About 200 KB of saved styles, and the section that is asked for behind them.
QByteArray profile()
{
    QByteArray bytes;
    for (int set = 0; bytes.size() < 200'000; ++set) {
        bytes += "[Set" + QByteArray::number(set) + "]\r\n";
        for (int entry = 1; entry <= 22; ++entry)
            bytes += "key" + QByteArray::number(entry) + "=some value " + QByteArray::number(set) + "\r\n";
    }
    return bytes + "\r\n[Color]\r\none=255\r\nback=16777215\r\n";
}

/// Makes a file look changed, or the peer answers from its memory.
void touch(const QString& path)
{
    static QDateTime time = QDateTime::currentDateTime();
    time = time.addSecs(1);
    QFile file(path);
    require(file.open(QIODevice::ReadWrite) && file.setFileTime(time, QFileDevice::FileModificationTime),
            "the file can't be touched");
}

void measureRead(const QString& path)
{
    const QString value = QStringLiteral("16777215");
    const auto ours = [=] { require(ReadProfile(Section, Key, path) == value, "a wrong value"); };
    const auto theirs = [=] {
        const QSettings settings(path, QSettings::IniFormat);
        require(settings.value(Section + u'/' + Key).toString() == value, "a wrong value");
    };
    const Rival limit = {Role::Limit, "file read into memory", batched([path] { keep(readFile(path)); })};
    measure({"Settings",
             "Read one value of a file of 200 KB",
             {.most = 1, .timesPeer = 1},
             {{Role::Ours, "ReadProfile", batched(ours)},
              {Role::Peer, "QSettings, file changed", timed(theirs, [path] { touch(path); })},
              {Role::Peer, "QSettings, kept in memory", batched(theirs)},
              limit}});
}

void measureWrite(const QString& path, const QString& other)
{
    int number = 0;
    writeFile(other, profile());
    const auto theirs = [=]() mutable {
        QSettings settings(other, QSettings::IniFormat);
        settings.setValue(Section + u'/' + Key, ++number);
        settings.sync();
    };
    measure({"Settings",
             "Write one value of a file of 200 KB",
             {.timesLimit = 2},
             {{Role::Ours, "WriteProfile",
               timed([=]() mutable { WriteProfile(Section, Key, QString::number(++number), path); },
                     // The peer leaves thousands of crumbs, which the next large allocation sweeps up.
                     [path] { keep(readFile(path)); },
                     [=] { return !ReadProfile(Section, Key, path).isEmpty(); })},
              {Role::Peer, "QSettings, sync()", timed(theirs)},
              {Role::Limit, "write and fsync",
               timed([other, bytes = profile()] { writeAndSync(other, bytes); })}}});
}

/// The look of a table, as the table designer saves it.
void measureSet(const QString& path)
{
    QList<ProfileValue> set;
    for (int key = 1; key <= 22; ++key)
        set << ProfileValue{Section, QString::number(key), QString::number(key * 1000)};
    measure({"Settings",
             "Write a set of 22 values into a file of 200 KB",
             {.timesPeer = 0.5},
             {{Role::Ours, "WriteProfile, all at once", timed([=] { WriteProfile(set, path); })},
              {Role::Peer, "WriteProfile, one by one", timed([=] {
                   for (const ProfileValue& value : set)
                       WriteProfile({value}, path);
               })}}});
}

std::string replaced(const std::string& text, const std::string& find, const std::string& with)
{
    std::string result;
    size_t done = 0;
    for (size_t hit = text.find(find); hit != std::string::npos; hit = text.find(find, done)) {
        result.append(text, done, hit - done).append(with);
        done = hit + find.size();
    }
    return result.append(text, done);
}

const std::vector<Size> Hits = {{"1", 1}, {"10", 10}, {"100", 100}, {"1,000", 1000}, {"10,000", 10'000}};

std::vector<Rival> replaceHits(qsizetype hits)
{
    const QByteArray text = QByteArray("A line of text\r").repeated(hits);
    const std::string copy = text.toStdString();
    require(ReplaceAll(text, "\r", "+chr13+").toStdString() == replaced(copy, "\r", "+chr13+"),
            "the two differ");
    return {
        {Role::Ours, "ReplaceAll", batched([text] { keep(ReplaceAll(text, "\r", "+chr13+")); })},
        {Role::Peer, "QByteArray::replace",
         batched([text] { keep(QByteArray(text).replace("\r", "+chr13+")); })},
        {Role::Peer, "std::string, one pass", batched([copy] { keep(replaced(copy, "\r", "+chr13+")); })}};
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir folder(QDir::current().filePath(QStringLiteral("settings-XXXXXX"))); // no memory disk
    const QString path = folder.filePath(QStringLiteral("web.ini"));
    writeFile(path, profile());
    measureRead(path);
    measureWrite(path, folder.filePath(QStringLiteral("other.ini")));
    measureSet(path);
    measureGrowth("ReplaceAll, hits", {.timesPeer = 1.5}, Hits, replaceHits);
    return 0;
}
