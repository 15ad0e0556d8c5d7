// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/ListingCheck.h"

#include <QFile>
#include <QTest>
#include <algorithm>

using namespace brindlemark;

class TestListingPages : public QObject
{
    Q_OBJECT

private slots:
    void cleanPages_data();
    void cleanPages();
    void thirtyFaults_data();
    void thirtyFaults();
    void samplePages_data();
    void samplePages();
    void samplePagesMended_data();
    void samplePagesMended();
    void samplePagesOnPhones_data();
    void samplePagesOnPhones();
};

namespace {

using R = CheckRule;
using Rules = QList<CheckRule>;

// clang-format off

/// As a wizard writes pages: tables of cells, and comments around their parts.
const QByteArray WizardPage = R"html(<HTML><HEAD>
<TITLE>Brass lamp, 1930s</TITLE>
<META content="width=device-width, initial-scale=1" name=viewport>
<META content="Maker 2.0" name=GENERATOR>
</HEAD>
<BODY>
<!-- body-buildwizard0 -->
<TABLE borderColor=#110000 cellSpacing=2 cellPadding=4 width="100%" align=left bgColor=#F4F4F4 border=3>
<TBODY>
<TR>
<TD align=middle bgColor=#EEEE22 colSpan=2><BR>
<!-- Body-title -->
<FONT face=Arial color=#880000 size=5>
Brass lamp, 1930s
</FONT>
<!-- Body-title2 -->
<BR><BR>
<!-- Body-line --><HR width="75%" color=#550055>
<!-- Body-line2 -->
<TABLE cellSpacing=0 cellPadding=5 align=center bgColor=#EEEE22 border=0><TBODY><TR><TD>
<!-- Body-picture --><IMG style="max-width:100%" alt="The lamp from the front" src="https://pictures.example/lamp1.jpg" border=0><!-- Body-picture2 --></TD>
<TD><!-- Body-description -->
<FONT face=Arial color=#000077 size=3>
A heavy lamp of brass with a new cord and a new plug. <B>It works</B> &amp; shines. The shade is of green
glass and has no cracks; the foot has a small dent at the back that can't be seen from the front. The switch
is the first one and clicks as it should. It takes an ordinary bulb of up to 60 watts, which I do not send along
with it because the last one came to its buyer in pieces. With its shade the lamp is 18 inches high and weighs
about 6 pounds. The cord is 7 feet long, cloth-covered, and runs through a felt-lined hole. It stood on my grandfather's desk for as long as I can remember, and he read by it every evening.
</FONT>
<!-- Body-description2 -->
</TD></TR></TBODY></TABLE><BR><BR>
<TABLE cellSpacing=0 cellPadding=2 width="80%" align=center bgColor=#ffffff border=0>
<TBODY><TR>
<TD bgColor=#33FF33>
<!-- Body-Cell --><B><FONT face=Arial color=#004444 size=3>
For payment I do accept:
</FONT></B><!-- Body-Cell2 --></TD></TR><TR>
<TD bgColor=#EEEE22><BR><!-- Body-list -->
<UL>
<LI><FONT face=Arial color=#005500 size=3>
Money order
</FONT>
<LI><FONT face=Arial color=#005500 size=3>
Visa/MasterCard
</FONT>
<LI><FONT face=Arial color=#005500 size=3>
Cash, at the door
</FONT></LI></UL>
<!-- Body-list2 -->
<!-- Body-body -->
<P>Payment within seven days.</P>
<!-- Body-body2 -->
</TD></TR><TR>
<TD bgColor=#33FF33><!-- Body2-Cell --><B><FONT face=Arial color=#004444 size=3>
Where I send it:
</FONT></b>
<!-- Body2-Cell2 --></TD></TR><TR>
<TD bgColor=#EEEE22><BR><!-- Body2-list -->
<UL>
<LI>Canada
<LI>Europe
<LI>Other places: ask me first
</UL>
<!-- Body2-list2 -->
<!-- Body2-body -->I ship on Mondays.<!-- Body2-body2 --></TD></TR><TR>
<TD bgColor=#33FF33><!-- Body3-Cell --><B><FONT face=Arial color=#004444 size=3>
Who pays for shipping?
</FONT></B><!-- Body3-Cell2 --></TD></TR><TR>
<TD bgColor=#EEEE22><BR><!-- Body3-list -->
<UL>
<LI>Buyer pays all shipping.
<LI>Shipping and handling - $12.50
<LI>Shipping insurance - $3.05
<LI>Tax rate: 8.25%, state: NY
</UL>
<!-- Body3-list2 -->
<!-- Body3-body -->Insurance is <I>your</I> choice.<!-- Body3-body2 -->
</TD></TR></TBODY></TABLE></TD></TR></TBODY></TABLE></BODY></HTML>
)html";

/// As people wrote pages by hand: fonts, centred lines, no end tag that could be left out.
const QByteArray HandPage = R"html(<HTML>
<HEAD>
<TITLE>SIX STEEL KITCHEN KNIVES - no reserve!!!</TITLE>
<META NAME="viewport" CONTENT="width=device-width">
<META NAME="description" CONTENT="Six knives of steel, used twice.">
</HEAD>
<BODY BGCOLOR="#FFFFCC" TEXT="#000000" LINK="#0000CC" VLINK="#660066">
<A NAME="top"></A>
<CENTER>
<H1><FONT COLOR="#990000" FACE="Comic Sans MS">SIX STEEL KITCHEN KNIVES</FONT></H1>
<FONT SIZE=4 COLOR="#003366"><B>No reserve! Look at the pictures &amp; bid!</B></FONT>
<HR WIDTH="60%" SIZE=4 NOSHADE>
<IMG SRC="https://pics.example/~anna/knives1.jpg" ALT="All six knives in their block" WIDTH=320 HEIGHT=240 BORDER=2>
<IMG SRC="https://pics.example/~anna/knives2.jpg" ALT="The blades" WIDTH=320 HEIGHT=240 BORDER=2>
</CENTER>
<P>You are bidding on a set of <B>six</B> kitchen knives with their wooden block. They were a
wedding present and I have used them <I>exactly twice</I>: once for a turkey, once for a watermelon.
No rust, no chips. The block is 9 x 4 inches & weighs 3 pounds.
<P>The set has:
<UL>
<LI>a bread knife (8 in.)
<LI>a carving knife (8 in.)
<LI>a chef's knife (7 in.)
<LI>two paring knives (3 in. and 3 1/2 in.)
<LI>a sharpening steel
</UL>
<P>
<TABLE BORDER=1 CELLPADDING=4 WIDTH="90%">
<TR><TH BGCOLOR="#CCCCCC">Where to<TH BGCOLOR="#CCCCCC">How much
<TR><TD>Lower 48 states<TD>$9.95
<TR><TD>Alaska, Hawaii<TD>$14.95
<TR><TD>Canada<TD>$19.95, plus whatever the customs want
</TABLE>
<P><FONT SIZE=2>I am not responsible for the mail.</FONT>
<P><FONT FACE="Arial,Helvetica" SIZE="+1">Have a look at my <A HREF="https://auctions.example/list?seller=anna&amp;page=1"
TARGET="_blank">other auctions</A>: I'm cleaning out the attic, and I do combine shipping.</FONT>
<DL>
<DT>Payment
<DD>Money order or check. Checks have to clear first, which takes up to ten days.
<DT>Questions
<DD>Use the form of the site, I answer <U>every day</U> but Sundays.
</DL>
<H3>What you should know</H3>
<P>The handles are of black wood, riveted three times, and all of the same make. The longest blade measures
8 inches without its handle, the shortest 3. One of the paring knives has a tiny scratch beside the maker's
mark; you have to hold it to the light to see it. They were sharpened in October by the man at the market,
who said that he hardly had anything to do.
<P>I would put them into the dishwasher, but the maker says <EM>don't</EM>: it is not good for the wood.
Knives are sharp, so please don't let children open the box. Buyers must be 18 or older.
<H3>About the seller</H3>
<BLOCKQUOTE>
<FONT COLOR="#003366">Selling since 1998, from a smoke-free home with two cats, who are not allowed near
anything that is for sale and have never yet scratched any of it. What you see is what you get; if it isn't,
tell me before you tell the world, and I will make it good. I pack everything twice
and mail it on the next working day.</FONT>
</BLOCKQUOTE>
<P ALIGN=CENTER><A HREF="#top">Back to the top</A>
<P ALIGN=RIGHT><FONT COLOR=#666600>Thank you for looking<BR>and good luck!</FONT>
</BODY>
</HTML>
)html";

/// Tables within tables, with a style sheet of its own.
const QByteArray NestedPage = R"html(<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Transitional//EN">
<html lang="en">
<head>
<meta http-equiv="Content-Type" content="text/html; charset=utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1.0">
<title>Table radio “Minuet” – works</title>
<style type="text/css">
<!--
body { margin: 0; font-family: Verdana, sans-serif; }
table.outer { border-collapse: collapse; }
td.head { background-color: #003344; color: #FFFFFF; padding: 12px }
td.side { background: #E8E8E8; }
.price { color: #880000; font-weight: bold; }
td.head h2 { margin: 0; font-size: 150%; }
-->
</style>
</head>
<body bgcolor="#FFFFFF" text="#222222">
<table class="outer" width="100%" cellpadding="0" cellspacing="0" border="0">
  <caption>Radio, about 1957</caption>
  <colgroup><col width="30%"><col width="70%"></colgroup>
  <thead>
  <tr>
    <td class="head" colspan="2"><h2>Table radio “Minuet”</h2></td>
  </tr>
  </thead>
  <tbody>
  <tr>
    <td class="side" valign="top" width="30%">
      <table cellpadding="6" width="100%">
        <tr><td><a href="#pictures">Pictures</a></td></tr>
        <tr><td><a href="#terms">Terms</a></td></tr>
        <tr>
          <td>
            <table border="1" width="90%"><tbody>
              <tr><th>Band</th><th>From</th><th>To</th></tr>
              <tr><td>AM</td><td>540</td><td>1600</td></tr>
              <tr><td>FM</td><td>88</td><td>108</td></tr>
            </tbody></table>
          </td>
        </tr>
      </table>
    </td>
    <td valign="top">
      <div style="padding: 10px; max-width: 640px">
        <p>A table radio with five tubes, all of them tested. The case is of walnut, the cloth is
        the first one; one knob has been replaced. It plays, with a slight hum until it is warm.</p>
        <p>The dial lights up, the magic eye is weak but can be seen in a dark room. A new belt drives the
        pointer. I have measured the voltages against the plan, and they are all within a tenth of it.
        Two capacitors were changed in 2019.</p>
        <p>Starting at <span class="price">€&nbsp;45.00</span>, and <em>no</em> reserve.</p>
        <a name="pictures"></a>
        <table width="100%"><tr>
          <td width="50%"><img src="https://img.example/radio/front.jpg" alt="Front" width="100%"></td>
          <td width="50%"><img src="https://img.example/radio/back.jpg" alt="Back, without its cover" style="max-width: 100%; height: auto"></td>
        </tr></table>
        <a name="terms"></a>
        <ol>
          <li>Pay within a week.</li>
          <li>I pack it in two boxes.</li>
          <li>No returns, but <strong>ask</strong> me anything before you bid.</li>
        </ol>
        <p>More about such radios: <a href="http://radios.example/minuet?x=1&amp;y=2" target="_blank" title="A page about it">here</a>.</p>
      </div>
    </td>
  </tr>
  </tbody>
  <tfoot>
  <tr><td colspan="2" align="center" style="color: #333333; background-color: #DDDDDD">Thank you!</td></tr>
  </tfoot>
</table>
</body>
</html>
)html";

/// German and French words, each in one byte.
const QByteArray WesternPage = QString::fromUtf8(R"html(<html>
<head>
<meta http-equiv="content-type" content="text/html; charset=windows-1252">
<title>Käthe-Kruse-Stil Puppe, handgenäht, um 1950</title>
<meta name="viewport" content="width=device-width">
</head>
<body bgcolor="#F0F0FF">
<div align="center">
<h1><font color="#333366">Schöne Stoffpuppe, handgenäht</font></h1>
<h2><font color="#663333">Jolie poupée en tissu, cousue à la main</font></h2>
</div>
<p><img src="https://bilder.example/puppe-1.jpg" alt="Die Puppe von vorn – größer als gedacht" width="300" align="left">
Zum Verkauf steht eine wunderschöne Puppe aus den fünfziger Jahren. Sie ist 42&nbsp;cm groß, Kopf und
Körper sind aus Stoff, die Haare sind gemalt. Das Kleidchen ist älter, aber nicht das ursprüngliche.
<p>Zustand: für ihr Alter <b>sehr schön</b>. Kleine Flecken am linken Fuß, ein geflicktes Löchlein
im Ärmel (siehe Bild). Sie kommt aus einem <i>tierfreien Nichtraucherhaushalt</i>.
<hr width="80%">
<p lang="fr">Poupée des années cinquante, très bon état. Hauteur&nbsp;: 42&nbsp;cm. Tête et corps en
tissu, cheveux peints. La robe n'est pas d'origine. Une petite réparation à la manche, «&nbsp;à peine
visible&nbsp;». Elle vient d'une maison sans fumée et sans animaux, et elle a toujours été tenue à l'abri
du soleil. Envoi soigné dans toute l'Europe&nbsp;: vous payez le port réel.
<table width="90%" align="center" cellpadding="4">
<tr><td bgcolor="#333366"><font color="#FFFFFF"><b>Versand / Envoi</b></font></td>
<td bgcolor="#333366"><font color="#FFFFFF"><b>Preis / Prix</b></font></td></tr>
<tr><td>Deutschland</td><td>4,90 EUR</td></tr>
<tr><td>Österreich, Schweiz</td><td>9,90 EUR</td></tr>
<tr><td>France, Belgique, Luxembourg</td><td>9,90 EUR</td></tr>
<tr><td>Übrige Länder / autres pays</td><td>auf Anfrage / sur demande</td></tr>
</table>
<p><img src="https://bilder.example/puppe-2.jpg" alt="" style="max-width:100%">
<p>Fragen? Schreiben Sie mir über die Seite, ich antworte täglich. Weitere Puppen und Bären finden Sie
<a href="https://auktionen.example/verkaeufer/m%C3%BCller" target="_blank">bei meinen anderen Angeboten</a>.
<h3>Noch ein paar Worte zur Puppe</h3>
<p>Sie gehörte meiner Großtante in Düsseldorf, die sie zum achten Geburtstag bekam und immer in Ehren hielt.
Später saß sie dreißig Jahre lang auf dem Schränkchen im Flur. Die Nähte sind fest, die Füllung ist aus
Kapok, nur der Hals ist ein wenig müde, was man beim Sitzen nicht bemerkt. Auf der Fußsohle steht eine Nummer, die man kaum noch lesen kann:
vielleicht 1&nbsp;047. Ob sie wirklich von der Hand der berühmten Künstlerin stammt, weiß ich nicht;
darum «im Stil von».
<p lang="fr">Elle a appartenu à ma grand-tante, qui l'a reçue pour ses huit ans. Les coutures sont solides,
le rembourrage est en kapok&nbsp;; seul le cou est un peu fatigué.
<ul>
<li>Überweisung oder Barzahlung bei Abholung
<li>Abholung in Köln möglich
<li>Bitte beachten: Privatverkauf, keine Rücknahme
</ul>
<center><font size="2" color="#333333">Vielen Dank und viel Glück! Merci et bonne chance&nbsp;!</font></center>
</body>
</html>
)html").toLatin1();

/// As pages are written now.
const QByteArray ModernPage = R"html(<!doctype html>
<html lang="en">
<head>
  <meta charset="utf-8">
  <meta name="viewport" content="width=device-width, initial-scale=1">
  <title>Stamps: 120 years of birds</title>
  <style>
    :root { --ink: #1a1a1a; }
    body { color: #1a1a1a; background-color: #fdfdf8; max-width: 60em; margin: auto }
    img { max-width: 100%; height: auto }
    .grid { display: grid; grid-template-columns: repeat(auto-fit, minmax(10em, 1fr)); gap: 1em }
    nav a { color: #004488 }
    @media (max-width: 600px) { .grid { display: block } }
  </style>
</head>
<body>
  <header>
    <h1>Stamps: 120 years of birds</h1>
    <nav aria-label="Parts">
      <a href="#about">About</a> | <a href="#sheets">Sheets</a> | <a href="#shipping">Shipping</a>
    </nav>
  </header>
  <main>
    <section id="about">
      <h2>About the collection</h2>
      <p>For sale is my late uncle’s collection of stamps that show birds: <strong>1,240 stamps</strong>
      from 61 countries, 1902 to 2022, in four albums. About half of them are mint; the others are
      lightly cancelled. The albums are of the kind with clear pockets, so none has been glued or hinged.
      I am no expert &mdash; please look closely &amp; ask.</p>
      <p>Highlights:</p>
      <ul>
        <li>the complete <q>Garden birds</q> of 1954</li>
        <li>two misprints with a <mark>missing green</mark></li>
        <li>a first-day cover, signed</li>
      </ul>
    </section>
    <section id="sheets">
      <h2>Some of the sheets</h2>
      <div class="grid">
        <figure>
          <img src="https://cdn.example/stamps/owls.webp" alt="Twelve stamps with owls" style="max-width:100%" loading="lazy">
          <figcaption>Owls &#128375;</figcaption>
        </figure>
        <figure>
          <img src="//cdn.example/stamps/ducks.webp" alt="Nine stamps with ducks" width="360" loading="lazy">
          <figcaption>Ducks</figcaption>
        </figure>
      </div>
      <details><summary>The list by countries</summary>
        <table>
          <thead><tr><th scope="col">Country</th><th scope="col">Stamps</th></tr></thead>
          <tbody>
            <tr><td>Austria</td><td>44</td></tr>
            <tr><td>Brazil</td><td>87</td></tr>
            <tr><td>Finland</td><td>120</td></tr>
          </tbody>
        </table>
      </details>
    </section>
    <section id="shipping">
      <h2>Shipping</h2>
      <p>Insured parcel, <b>€ 18</b> within Europe, <b>€ 29</b> elsewhere. Sent within
      <time datetime="P2D">two days</time>. See the
      <a href="https://post.example/prices?from=DE&amp;kg=4" target="_blank" rel="noopener">prices of the post</a>.</p>
      <p style="color:#552200; background-color:#FFF4E0; padding:1em">Collectors’ notes: perforations and
      watermarks weren’t checked.</p>
    </section>
  </main>
  <footer>
    <p><small>Thank you for reading this far. Good luck!</small></p>
    <svg width="24" height="24" viewBox="0 0 24 24" aria-hidden="true"><path d="M2 12h20" stroke="#004488"/></svg>
  </footer>
</body>
</html>
)html";

// clang-format on

QByteArray idOf(CheckRule rule)
{
    return ruleText(rule).id;
}

QByteArray described(const std::vector<Finding>& findings, const QByteArray& html)
{
    QByteArray text;
    for (const Finding& finding : findings) {
        text += "\n    " + idOf(finding.rule) + " what=" + finding.what +
                " line=" + QByteArray::number(html.first(finding.place.start).count('\n') + 1) +
                " place=" + html.sliced(finding.place.start, finding.place.length);
    }
    return text;
}

/// "Rule what" of each finding, sorted.
QByteArrayList told(const std::vector<Finding>& findings)
{
    QByteArrayList all;
    for (const Finding& finding : findings)
        all << idOf(finding.rule) + ' ' + finding.what;
    std::sort(all.begin(), all.end());
    return all;
}

qsizetype count(const std::vector<Finding>& findings, CheckRule rule)
{
    return std::count_if(findings.begin(), findings.end(),
                         [&](const Finding& finding) { return finding.rule == rule; });
}

QByteArray samplePage(int style, int pictureStyle)
{
    QFile file(QStringLiteral(TEST_DATA "/pages/listing-style%1-picture%2.htm").arg(style).arg(pictureStyle));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void addSamplePages()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("pictureStyle");
    for (int style = 0; style < 4; ++style) {
        for (int pictureStyle = 0; pictureStyle < 4; ++pictureStyle)
            QTest::addRow("style %d, picture %d", style, pictureStyle) << style << pictureStyle;
    }
}

} // namespace

void TestListingPages::cleanPages_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::newRow("wizard") << WizardPage;
    QTest::newRow("hand") << HandPage;
    QTest::newRow("nested") << NestedPage;
    QTest::newRow("western") << WesternPage;
    QTest::newRow("modern") << ModernPage;
}

void TestListingPages::cleanPages()
{
    QFETCH(QByteArray, html);
    QVERIFY2(html.size() >= 3000, qPrintable(QString::number(html.size())));
    for (const QByteArray& each : {html, QByteArray(html).replace("\n", "\r\n")}) {
        const auto findings = checkListing(each, CheckLimits()).findings;
        QVERIFY2(findings.empty(), described(findings, each).constData());
        QVERIFY(phoneEdits(each, CheckLimits()).empty());
    }
}

void TestListingPages::thirtyFaults_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QByteArray>("before"); // stands there once
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<int>("rule");
    QTest::addColumn<QByteArray>("place"); // within `after`; empty where nothing is there
    QTest::addColumn<QByteArray>("what");  // "?" where the sentence does not have it
    QTest::addColumn<Rules>("follows");    // what else may be found
    int number = 0;
    const auto row = [&](const QByteArray& html, const QByteArray& before, const QByteArray& after, R rule,
                         const QByteArray& place, const QByteArray& what, const Rules& follows = {}) {
        QTest::addRow("%d %s", ++number, ruleText(rule).id)
            << html << before << after << int(rule) << place << what << follows;
    };

    row(WizardPage, "<I>your</I> choice", "<I>your choice", R::UnclosedTag, "<I>", "I");
    row(WizardPage, "</TBODY></TABLE></TD></TR></TBODY></TABLE></BODY>", "</TBODY></TABLE></BODY>",
        R::UnclosedTag, "", "TABLE");
    row(WizardPage, "<!-- Body2-list2 -->", "", R::UnpairedMarker, "", "<!-- Body2-list -->");
    row(WizardPage, "src=\"https://pictures.example/lamp1.jpg\"", "src=\"http://pictures.example/lamp1.jpg\"",
        R::HttpAddress, "src=\"http://pictures.example/lamp1.jpg\"", "http://pictures.example/lamp1.jpg");
    row(WizardPage, "- $12.50", "- $.00", R::Leftover, "$.00", "$.00");
    row(WizardPage, "<META content=\"Maker 2.0\" name=GENERATOR>", "<META content=", R::TornGeneratorTag,
        "<META content=", "?", {R::TornTag, R::TornQuote});
    row(WizardPage, "\nBrass lamp, 1930s\n</FONT>", "\n\n</FONT>", R::NoTitle, "", "?");
    row(WizardPage, "colSpan=2", "colSpan=2 width=760", R::WideTable, "width=760", "760");

    row(HandPage, "<B>six</B>", "<B><I>six</B></I>", R::CrossedTags, "", "?");
    row(HandPage, "and good luck!</FONT>", "and good luck!</FONT></FONT>", R::UnopenedTag, "", "FONT");
    row(HandPage, "COLOR=\"#990000\"", "COLOR=\"#FFFF00\"", R::Contrast, "", "?");
    row(HandPage, " ALT=\"The blades\"", "", R::NoAlt, "", "?");
    row(HandPage, "\nTARGET=\"_blank\">", ">", R::LinkTarget, "", "?");
    row(HandPage, "ALT=\"The blades\" WIDTH=320", "ALT=\"The blades\" WIDTH=1024", R::WidePicture, "", "1024",
        {R::NoPhoneWidth});
    row(HandPage, "<FONT SIZE=2>I am not responsible for the mail.</FONT>",
        "<FONT SIZE=2>" + QByteArray("I am not responsible for the mail. ").repeated(6) + "</FONT>",
        R::SmallText, "<FONT SIZE=2>", "2");
    row(HandPage, "<META NAME=\"viewport\" CONTENT=\"width=device-width\">\n", "", R::NoViewport, "", "?");
    row(HandPage, "Use the form of the site", "Write to anna@mail.example", R::MailAddress,
        "anna@mail.example", "anna@mail.example");

    row(NestedPage, "<tr><th>Band</th>", "Bands<tr><th>Band</th>", R::OutsideCell, "Bands", "?");
    row(NestedPage, "<div style=\"padding: 10px; max-width: 640px\">",
        "<div style=\"padding: 10px\" STYLE=\"max-width: 640px\">", R::DuplicateAttribute,
        "STYLE=\"max-width: 640px\"", "STYLE");
    row(NestedPage, "<span class=\"price\">", "<span class=\"price\" onMouseOver=\"flash(this)\">",
        R::Handler, "onMouseOver=\"flash(this)\"", "onMouseOver");
    row(NestedPage, "body { margin: 0;", "@import url(https://x.example/a.css);\nbody { margin: 0;",
        R::OutsideStyle, "", "?");
    row(NestedPage, "<a name=\"pictures\"></a>", "<!-- pictures <a name=\"pictures\"></a><!-- here -->",
        R::CommentInComment, "<!-- pictures <a name=\"pictures\"></a><!-- here -->", "?");
    row(NestedPage, "href=\"http://radios.example/minuet", "href=\"http://https://radios.example/minuet",
        R::DoubledScheme, "", "?");

    row(WesternPage, "K\xF6rper", "K\x81rper", R::InvalidBytes, "\x81", "?");
    row(WesternPage, "src=\"https://bilder.example/puppe-1.jpg\"", "src=\"C:\\Bilder\\puppe-1.jpg\"",
        R::LocalAddress, "src=\"C:\\Bilder\\puppe-1.jpg\"", "C:\\Bilder\\puppe-1.jpg");
    row(WesternPage, "src=\"https://bilder.example/puppe-2.jpg\"",
        "src=\"https://bilder.example/puppe 2.jpg\"", R::BlankInAddress,
        "src=\"https://bilder.example/puppe 2.jpg\"", "https://bilder.example/puppe 2.jpg");
    row(WesternPage, "<hr width=\"80%\">", "<td>", R::OutsideTable, "<td>", "td");

    row(ModernPage, "<header>", "<header><script>track('a')</script>", R::Script, "<script>", "?");
    row(ModernPage, "//cdn.example/stamps/ducks.webp", "ducks.webp", R::RelativeAddress, "", "ducks.webp");
    row(ModernPage, "alt=\"Twelve stamps with owls\"", "alt=\"owls.webp\"", R::FileNameAlt,
        "alt=\"owls.webp\"", "owls.webp");
    row(ModernPage, "  <footer>", "  <form action=\"https://x.example/\"></form><footer>", R::FormPart,
        "<form action=\"https://x.example/\">", "form");
    row(ModernPage, "style=\"color:#552200; background-color:#FFF4E0",
        "style=\"color:#FFCC66; background-color:#FFF4E0", R::Contrast, "", "?");
    row(ModernPage, "<a href=\"https://post.example/prices?from=DE&amp;kg=4\"", "<a href=\"\"",
        R::EmptyAddress, "href=\"\"", "href");
    row(ModernPage, "alt=\"Nine stamps with ducks\" width=\"360\"",
        "alt=\"Nine stamps with ducks width=\"360\"", R::TornQuote, "alt=\"Nine stamps with ducks width=\"",
        "alt", {R::NoPhoneWidth, R::DuplicateAttribute});
    row(ModernPage, "</html>\n", "</html>\n<img src=", R::TornTag, "<img src=", "?");
    row(ModernPage, "<mark>missing", "<!-- <mark>missing", R::TornComment, "", "?",
        {R::UnclosedTag, R::UnopenedTag});
}

void TestListingPages::thirtyFaults()
{
    QFETCH(QByteArray, html);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(int, rule);
    QFETCH(QByteArray, place);
    QFETCH(QByteArray, what);
    QFETCH(Rules, follows);
    QVERIFY(html.contains(before));
    const qsizetype start = html.indexOf(before);
    const QByteArray faulty = html.first(start) + after + html.sliced(start + before.size());
    const auto findings = checkListing(faulty, CheckLimits()).findings;
    const QByteArray all = described(findings, faulty);

    QVERIFY2(count(findings, CheckRule(rule)) == 1, all.constData());
    for (const Finding& finding : findings) {
        if (finding.rule != CheckRule(rule)) {
            QVERIFY2(follows.contains(finding.rule), all.constData());
            continue;
        }
        if (!place.isEmpty()) {
            const TextRange expected{start + after.lastIndexOf(place), place.size()};
            QVERIFY2(finding.place == expected, all.constData());
        }
        QVERIFY2(what == "?" || finding.what.compare(what, Qt::CaseInsensitive) == 0, all.constData());
    }

    // What mends the fault leaves a page without any, but for what the fault brought along.
    for (const Finding& finding : findings) {
        if (finding.rule != CheckRule(rule) || finding.mend.empty())
            continue;
        const QByteArray mended = edited(faulty, finding.mend);
        const auto left = checkListing(mended, CheckLimits()).findings;
        QVERIFY2(left.empty(), (mended + described(left, mended)).constData());
    }
}

void TestListingPages::samplePages_data()
{
    addSamplePages();
}

void TestListingPages::samplePages()
{
    QFETCH(int, style);
    QFETCH(int, pictureStyle);
    const QByteArray html = samplePage(style, pictureStyle);
    QVERIFY(!html.isEmpty());
    QByteArrayList expected = {
        "NoViewport ",
        "Contrast 3.0",                       // #009900 on #EEEE22
        "UnclosedTag FONT", "UnclosedTag UL", // around the last list
        "CrossedTags FONT",                   // </FONT></LI></UL> of the first list
        "CrossedTags FONT",                   // the one that begins in an item and ends within the list in it
    };
    if (style < 2) {
        expected << "UnclosedTag TABLE"; // the outer one
        expected << "CrossedTags FONT";  // </FONT></LI></UL> of the second list
    } else {
        expected << "UnclosedTag FONT"; // of the second list
        expected << "UnclosedTag B"
                 << "UnclosedTag B"; // <B> in front of two cells' titles
    }
    if (style == 3)
        expected << "Contrast 3.4"; // #0099000 is #009000, 3.38
    const bool hasThree = pictureStyle == 1 || pictureStyle == 3;
    // <ALIGN=MIDDLE> is no tag that any browser knows: nobody misses its end.
    for (int i = 1; i <= (hasThree ? 3 : 1); ++i) {
        expected << "HttpAddress http://pictures.example/lamp" + QByteArray::number(i) + ".jpg";
        expected << "NoAlt "
                 << "NoPhoneWidth ";
    }
    if (pictureStyle == 1)
        expected << "UnclosedTag CENTER"
                 << "UnclosedTag CENTER";
    std::sort(expected.begin(), expected.end());
    const auto findings = checkListing(html, CheckLimits()).findings;
    const QByteArrayList actual = told(findings);
    QVERIFY2(
        actual == expected,
        ("expected:\n    " + expected.join("\n    ") + "\nfound:" + described(findings, html)).constData());
}

void TestListingPages::samplePagesMended_data()
{
    addSamplePages();
}

/// One rule after the other, until nothing is left that could be mended.
void TestListingPages::samplePagesMended()
{
    QFETCH(int, style);
    QFETCH(int, pictureStyle);
    QByteArray html = samplePage(style, pictureStyle);
    auto findings = checkListing(html, CheckLimits()).findings;
    for (size_t i = 0; i < CheckRuleCount; ++i) {
        html = edited(html, mendAll(findings, CheckRule(i)));
        const auto left = checkListing(html, CheckLimits()).findings;
        for (size_t other = 0; other < CheckRuleCount; ++other)
            QVERIFY2(count(left, CheckRule(other)) <= count(findings, CheckRule(other)),
                     (idOf(CheckRule(i)) + " brings " + idOf(CheckRule(other)) + described(left, html))
                         .constData());
        findings = left;
    }
    for (const Finding& finding : findings)
        QVERIFY2(finding.mend.empty(), idOf(finding.rule).constData());
    for (const CheckRule rule : {R::NoViewport, R::NoAlt, R::NoPhoneWidth, R::HttpAddress})
        QCOMPARE(count(findings, rule), 0);
}

void TestListingPages::samplePagesOnPhones_data()
{
    addSamplePages();
}

void TestListingPages::samplePagesOnPhones()
{
    QFETCH(int, style);
    QFETCH(int, pictureStyle);
    const QByteArray html = samplePage(style, pictureStyle);
    QCOMPARE(listingTitle(html), QByteArray("Brass lamp, 1930s"));
    const QByteArray changed = edited(html, phoneEdits(html, CheckLimits()));
    QByteArrayList expected = told(checkListing(html, CheckLimits()).findings);
    expected.removeIf([](const QByteArray& each) {
        return each.startsWith("NoViewport") || each.startsWith("NoAlt") || each.startsWith("NoPhoneWidth");
    });
    QCOMPARE(told(checkListing(changed, CheckLimits()).findings), expected);
    QCOMPARE(changed.count("alt=\"Brass lamp, 1930s\""), pictureStyle == 1 || pictureStyle == 3 ? 3 : 1);
    QVERIFY(phoneEdits(changed, CheckLimits()).empty());
    // The program's own buttons still find the page's style.
    QVERIFY(changed.contains("<!-- body-buildwizard" + QByteArray::number(style) + " -->"));
}

QTEST_APPLESS_MAIN(TestListingPages)
#include "tst_listingpages.moc"
