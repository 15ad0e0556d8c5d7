#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the listing pages that tests compare with: four design styles, four picture styles each.

The pieces and what differs from style to style are spelled out here, with nothing taken from the program: a page that
differs from the program's is a mistake on one of the two sides.

    make_pages.py           writes the pages beside this script
    make_pages.py --check   fails when a page beside this script is not what it would write
"""

import pathlib
import sys

N = "\r\n"

# The listing. Every colour, number and text is another one, so that no two can be taken for each other.
Text1 = "Brass lamp, 1930s"
Text2 = "A heavy lamp with a new cord. <B>It works</B> & shines."
URL1 = "http://pictures.example/lamp1.jpg"
URL2 = "http://pictures.example/lamp2.jpg"
URL3 = "http://pictures.example/lamp3.jpg"

Txt1 = "#110000"
Txt2 = "#EEEE22"
Txt3 = "#33FF33"
Txt4 = "#F4F4F4"
Txt5 = "#550055"
Txt6 = "#006666"
Txt7 = "#000077"
Txt8 = "#880000"
Txt9 = "#009900"
Combo5 = "2"
Combo6 = "3"

weblst = "<BODY>" + N + "<P>Payment within seven days.</P></BODY>" + N
weblst2 = "<BODY>I ship on Mondays.</BODY>" + N
weblst3 = "Insurance is <I>your</I> choice."


def description(opening, closing):
    return (
        "<!-- Body-description -->" + N
        + opening + "<FONT face=Arial color=" + Txt7 + " size=3>" + N
        + Text2 + N
        + "</FONT>" + closing + N
        + "<!-- Body-description2 -->" + N
    )


def one_picture():
    return "<!-- Body-picture --><ALIGN=MIDDLE><IMG src=" + URL1 + " border=0><!-- Body-picture2 -->"


def three_pictures():
    pictures = "".join("<ALIGN=MIDDLE><img src=" + url + " border=0>" + N for url in (URL1, URL2, URL3))
    return "<!-- Body-picture -->" + pictures + "<!-- Body-picture2 -->"


def side_by_side(left, right):
    return (
        "<TABLE borderColor=#000000 cellSpacing=0 cellPadding=5 align=center bgColor=" + Txt2 + " border=0>"
        + "<TBODY><TR><TD>" + left + "</TD><TD>" + right + "</TD></TR></TBODY></TABLE><BR><BR>" + N
    )


PICTURES = (
    side_by_side(one_picture(), description("", "")),
    "<BR><BR><CENTER>" + three_pictures() + "<BR><BR><BR><CENTER>" + N + description("", "") + "<BR><BR><BR>" + N,
    side_by_side(description("", ""), one_picture()),
    "<BR>" + N + description("<P align=center>", "</P>") + "<BR>" + N + three_pictures() + "<BR><BR><BR>" + N,
)


def opening(style):
    return (
        "<BODY>" + N
        + "<!-- body-buildwizard" + style + " -->" + N
        + "<TABLE borderColor=" + Txt1 + " height=0% cellSpacing=" + Combo5
        + " cellPadding=4 width=100% align=left bgColor=" + Txt4 + " border=" + Combo6 + ">" + N
        + "<TBODY>" + N
        + "<TR>" + N
        + "<TD align=middle width=0 bgColor=" + Txt2 + " colSpan=2 height=0><BR>" + N
        + "<!-- Body-title -->" + N
        + "<FONT face=Arial color=" + Txt8 + " size=3>" + N
        + Text1 + N
        + "</FONT>" + N
        + "<!-- Body-title2 -->" + N
    )


def heading(part, caption, closing):
    return (
        "<!-- " + part + "-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + caption + N
        + closing
        + "<!-- " + part + "-Cell2 -->"
    )


def words(part, lines, closing):
    return (
        "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- " + part + "-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + lines
        + closing
        + "<!-- " + part + "-list2 -->" + N
    )


def word(text, color=Txt9):
    return "<LI><FONT face=Arial color=" + color + " size=3>" + N + text + N + "</FONT>" + N


def terms(part, above, beginning, text, end):
    return (
        "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + ">" + above
        + "<!-- " + part + "-body -->" + beginning
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + text
        + "<BR>"
        + "</FONT>"
        + "<!-- " + part + "-body2 -->" + end
        + "</TD></TR></TBODY></TABLE>"
    )


LINE = "<BR><BR>" + N + "<!-- Body-line --><HR width=75% color=" + Txt5 + ">" + N + "<!-- Body-line2 -->"
NARROW = "<TBODY><TR>" + N + "<TD bgColor=" + Txt3 + ">"
ROW = "</TD></TR><TR>" + N
ROW_OF_TWO_LINES = "</TD></TR>" + N + "<TR>" + N

# What differs from style to style.
STYLES = (
    {
        "above": LINE,
        "below": "<TABLE borderColor=#000000 cellSpacing=0 cellPadding=2 width=80% align=center bgColor=#ffffff border=0>"
                 + N + NARROW + N,
        "row": ROW, "bold": "", "location": "</FONT></b>" + N, "regions": "</UL>" + N + "</FONT></LI></UL>" + N,
        "terms": ("", "<BR>", ""), "between": ("", ""), "tax": Txt9,
    },
    {
        "above": LINE,
        "below": "<TABLE borderColor=" + Txt1 + " cellSpacing=" + Combo5
                 + " cellPadding=2 width=80% align=center bgColor=" + Txt4 + " border=1>" + N + NARROW,
        "row": ROW, "bold": "", "location": "</FONT></b>" + N, "regions": "</UL>" + N + "</FONT></LI></UL>" + N,
        "terms": ("", "", ""), "between": ("", ""), "tax": Txt9,
    },
    {
        "above": "<BR><BR></TD></TR>" + N + "<TR>" + N
                 + "<TD align=middle width=0 bgColor=" + Txt2 + " colSpan=2 height=0>" + N,
        "below": "</TD></TR><TR>" + N + "<TD bgColor=" + Txt3 + ">",
        "row": ROW_OF_TWO_LINES, "bold": "<B>", "location": "</FONT></B>" + N,
        "regions": "</UL>" + N + "</LI></UL>" + N,
        "terms": ("<BR>", "<BR>", "<BR>"), "between": ("", N), "tax": Txt9,
    },
    {
        "above": "<BR><BR></TD></TR><TR>" + N + "<TD bgColor=" + Txt3 + ">"
                 + heading("Body4", "Description:", "</FONT></B>" + N)
                 + "</TD></TR><TR><TD bgColor=" + Txt2 + ">"
                 + "<TABLE height=0% cellPadding=20 width=100% align=left border=0>" + N
                 + "<TBODY><TR><TD bgColor=" + Txt2 + ">",
        "below": "</TD></TR></TBODY></TABLE></TD></TR><TR><TD bgColor=" + Txt3 + ">",
        "row": ROW_OF_TWO_LINES, "bold": "<B>", "location": "</FONT></b>" + N,
        "regions": "</UL>" + N + "</LI></UL>" + N,
        "terms": ("", "", ""), "between": (N, N), "tax": Txt9 + "0",
    },
)


def page(number, picture):
    style = STYLES[number]
    in_payment, in_location, in_costs = style["terms"]
    below_payment, below_location = style["between"]
    cell = "<TR>" + N + "<TD bgColor=" + Txt3 + ">" + style["bold"]
    return (
        opening(str(number))
        + style["above"]
        + picture
        + style["below"]
        # Payment
        + heading("Body", "For payment I do accept:", "</FONT></B>")
        + ROW
        + words("Body", word("Money order") + word("Visa/MasterCard") + word("Cash, at the door"),
                "</FONT></LI></UL>" + N)
        + terms("Body", in_payment, N, weblst, N) + below_payment
        # Location
        + cell
        + heading("Body2", "For locations of shipping I do accpet:", style["location"])
        + style["row"]
        + words("Body2",
                "<LI><FONT face=Arial color=" + Txt9 + " size=3>" + N
                + "Will ship to the United States and the following regions<UL>" + N + "</FONT><BR>" + N
                + word("Canada") + word("Europe"),
                style["regions"])
        + terms("Body2", in_location, "", weblst2, "") + below_location
        # Who pays
        + cell
        + heading("Body3", "Who pays for shipping?", "</FONT></B>")
        + style["row"]
        + words("Body3",
                word("Buyer Pays All Shipping.") + word("Shipping and Handling costs - $12.50")
                + word("Shipping Insurance item costs - $3.05") + word("Additional item (per item) - $0.75")
                + word("Tax Rate: 8.25% State: NY", style["tax"]),
                "")
        + terms("Body3", in_costs, "", weblst3, "")
        # Close
        + "</TD></TR></TBODY></TABLE></BODY>" + N
    )


def main():
    folder = pathlib.Path(__file__).parent
    check = sys.argv[1:] == ["--check"]
    differing = []
    for number in range(len(STYLES)):
        for picture_number, picture in enumerate(PICTURES):
            file = folder / f"listing-style{number}-picture{picture_number}.htm"
            text = page(number, picture).encode()
            if not check:
                file.write_bytes(text)
            elif not file.is_file() or file.read_bytes() != text:
                differing.append(file.name)
    if differing:
        sys.exit("not as this script writes them: " + ", ".join(differing))


if __name__ == "__main__":
    main()
