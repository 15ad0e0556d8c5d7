// SPDX-License-Identifier: GPL-3.0-or-later

// The Quick Tags menu: fixed HTML at the caret of the source box, in place of what is selected there. What
// the user answers goes out as it is.

#include "platform/Doors.h"
#include "platform/Events.h"
#include "shell/FrmWeb.h"

#include <array>

namespace brindlemark {

namespace {

using U = Ui::FrmWeb;

/// An entry that puts a text at the caret, so many times.
struct Snippet
{
    QAction* U::*entry;
    const char* html;
    int times = 1;
};

constexpr std::array<Snippet, 17> Snippets = {{
    {&U::munbr1, "<BR>", 1},
    {&U::munbr2, "<BR>", 2},
    {&U::munbr3, "<BR>", 3},
    {&U::munbr4, "<BR>", 4},
    {&U::munbr5, "<BR>", 5},
    {&U::mup, "<P></P>"},
    {&U::muhr, "<HR>"},
    {&U::muleft, "<P Align=left>"},
    {&U::mucenter, "<P Align=center>"},
    {&U::muright, "<P Align=right>"},
    {&U::munnonp, "</P>"},
    {&U::muncenters, "<Center></Center>"},
    {&U::munnb1, "&nbsp;", 1},
    {&U::munnb2, "&nbsp;", 2},
    {&U::munnb3, "&nbsp;", 3},
    {&U::munnb4, "&nbsp;", 4},
    {&U::munnb5, "&nbsp;", 5},
}};

/// An entry that asks first, and puts the answer between two texts. The default and an empty answer insert
/// nothing.
struct Question
{
    QAction* U::*entry;
    const char* prompt;
    const char* title;
    const char* initial;
    const char* before;
    const char* behind;
};

constexpr std::array<Question, 3> Questions = {{
    {&U::mubackim, "Enter the Internet Address.", "Edit Hyperlink", "http://", "<body background=\"",
     "\" bgproperties=\"fixed\">"},
    // The scheme is put in front although the prompt asks for it, for those who leave it out.
    {&U::munAIL, "Type the full URL you wish to link to including the http://", "Internet Address.", "",
     "<A href=\"http://", "\">Click here</A>"},
    {&U::munemailink, "Enter your email address.", "E-Mail", "", "<A href=\"Mailto:", "\">E-Mail Me</A>"},
}};

/// An entry that asks for a scrolling text. An empty one and Cancel are meant to insert the tag too: the user
/// fills it in later.
struct Marquee
{
    QAction* U::*entry;
    const char* title;
    const char* opening;
};

constexpr std::array<Marquee, 3> Marquees = {{
    {&U::munMarleft, "Scrolling text on left", "<MARQUEE behavior=scroll direction=left>"},
    {&U::munMarright, "Scrolling text on right", "<MARQUEE behavior=scroll direction=right>"},
    {&U::munMarLR, "Scrolling text on left and right", "<MARQUEE BEHAVIOR = alternate loop=infinite>"},
}};

/// The script that shows a message on the right mouse button; the message stands between the two halves.
constexpr char MessageScriptHead[] = "<SCRIPT language=JavaScript>\r\n"
                                     "<!-- \r\n"
                                     "var message=\"";
constexpr char MessageScriptTail[] = "\";\r\n"
                                     "function click(e) {\r\n"
                                     "if (document.all) {\r\n"
                                     "if (event.button == 2) {\r\n"
                                     "alert(message);\r\n"
                                     "return false;\r\n"
                                     "}\r\n"
                                     "}\r\n"
                                     "if (document.layers) {\r\n"
                                     "if (e.which == 3) {\r\n"
                                     "alert(message);\r\n"
                                     "return false;\r\n"
                                     "}\r\n"
                                     "}\r\n"
                                     "}\r\n"
                                     "if (document.layers) {\r\n"
                                     "document.captureEvents(Event.MOUSEDOWN);\r\n"
                                     "}\r\n"
                                     "document.onmousedown=click;\r\n"
                                     "// -->\r\n"
                                     "</SCRIPT>\r\n";

} // namespace

void FrmWeb::connectQuickTags()
{
    for (const Snippet& snippet : Snippets) {
        on(this->*snippet.entry, &QAction::triggered, this,
           [this, snippet] { insertTag(QString::fromLatin1(snippet.html).repeated(snippet.times)); });
    }
    for (const Question& question : Questions) {
        on(this->*question.entry, &QAction::triggered, this, [this, question] {
            const QString initial = QString::fromLatin1(question.initial);
            const QString answer =
                InputBox(QString::fromLatin1(question.prompt), QString::fromLatin1(question.title), initial);
            if (!answer.isEmpty() && answer != initial)
                insertTag(QString::fromLatin1(question.before) + answer +
                          QString::fromLatin1(question.behind));
        });
    }
    for (const Marquee& marquee : Marquees) {
        on(this->*marquee.entry, &QAction::triggered, this, [this, marquee] {
            const QString text = InputBox(QStringLiteral("Please Enter your desired scrolling text:"),
                                          QString::fromLatin1(marquee.title));
            insertTag(QString::fromLatin1(marquee.opening) + text + QStringLiteral("</marquee>"));
            RichTextBox1->SetFocus();
        });
    }
    on(munmsg, &QAction::triggered, this, &FrmWeb::munmsg_Click);
}

void FrmWeb::insertTag(const QString& html)
{
    insert(html, QStringLiteral("Quick Tag"));
}

void FrmWeb::munmsg_Click()
{
    const QString message =
        InputBox(QStringLiteral("What do you like to say on message ?"), QStringLiteral("Message PopUp"));
    if (!message.isEmpty())
        insertTag(QString::fromLatin1(MessageScriptHead) + message + QString::fromLatin1(MessageScriptTail));
}

} // namespace brindlemark
