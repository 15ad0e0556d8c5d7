#!/usr/bin/env python3
"""Writes the listing pages that tests compare with: four design styles, four picture styles each.

Each style is spelled out here from top to bottom, piece by piece, with nothing shared between the styles and nothing
taken from the program: a page that differs from the program's is a mistake on one of the two sides.

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

LI = "<LI><FONT face=Arial color=" + Txt9 + " size=3>" + N


def picture0():
    return (
        "<TABLE borderColor=#000000 cellSpacing=0 cellPadding=5 align=center bgColor=" + Txt2 + " border=0>"
        + "<TBODY><TR><TD>"
        + "<!-- Body-picture -->"
        + "<ALIGN=MIDDLE><IMG src=" + URL1 + " border=0>"
        + "<!-- Body-picture2 -->"
        + "</TD><TD>"
        + "<!-- Body-description -->" + N
        + "<FONT face=Arial color=" + Txt7 + " size=3>" + N
        + Text2 + N
        + "</FONT>" + N
        + "<!-- Body-description2 -->" + N
        + "</TD></TR></TBODY></TABLE><BR><BR>" + N
    )


def picture1():
    return (
        "<BR><BR><CENTER>"
        + "<!-- Body-picture -->"
        + "<ALIGN=MIDDLE><img src=" + URL1 + " border=0>" + N
        + "<ALIGN=MIDDLE><img src=" + URL2 + " border=0>" + N
        + "<ALIGN=MIDDLE><img src=" + URL3 + " border=0>" + N
        + "<!-- Body-picture2 -->"
        + "<BR><BR><BR><CENTER>" + N
        + "<!-- Body-description -->" + N
        + "<FONT face=Arial color=" + Txt7 + " size=3>" + N
        + Text2 + N
        + "</FONT>" + N
        + "<!-- Body-description2 -->" + N
        + "<BR><BR><BR>" + N
    )


def picture2():
    return (
        "<TABLE borderColor=#000000 cellSpacing=0 cellPadding=5 align=center bgColor=" + Txt2 + " border=0>"
        + "<TBODY><TR><TD>"
        + "<!-- Body-description -->" + N
        + "<FONT face=Arial color=" + Txt7 + " size=3>" + N
        + Text2 + N
        + "</FONT>" + N
        + "<!-- Body-description2 -->" + N
        + "</TD><TD>"
        + "<!-- Body-picture -->"
        + "<ALIGN=MIDDLE><IMG src=" + URL1 + " border=0>"
        + "<!-- Body-picture2 -->"
        + "</TD></TR></TBODY></TABLE><BR><BR>" + N
    )


def picture3():
    return (
        "<BR>" + N
        + "<!-- Body-description -->" + N
        + "<P align=center><FONT face=Arial color=" + Txt7 + " size=3>" + N
        + Text2 + N
        + "</FONT></P>" + N
        + "<!-- Body-description2 -->" + N
        + "<BR>" + N
        + "<!-- Body-picture -->"
        + "<ALIGN=MIDDLE><img src=" + URL1 + " border=0>" + N
        + "<ALIGN=MIDDLE><img src=" + URL2 + " border=0>" + N
        + "<ALIGN=MIDDLE><img src=" + URL3 + " border=0>" + N
        + "<!-- Body-picture2 -->"
        + "<BR><BR><BR>" + N
    )


def style0(picture):
    return (
        # Opening
        "<BODY>" + N
        + "<!-- body-buildwizard0 -->" + N
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
        # Middle
        + "<BR><BR>" + N
        + "<!-- Body-line -->"
        + "<HR width=75% color=" + Txt5 + ">" + N
        + "<!-- Body-line2 -->"
        + picture
        + "<TABLE borderColor=#000000 cellSpacing=0 cellPadding=2 width=80% align=center bgColor=#ffffff border=0>" + N
        + "<TBODY><TR>" + N
        + "<TD bgColor=" + Txt3 + ">" + N
        # Payment
        + "<!-- Body-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "For payment I do accept:" + N
        + "</FONT></B>"
        + "<!-- Body-Cell2 -->"
        + "</TD></TR><TR>" + N
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + LI + "Money order" + N + "</FONT>" + N
        + LI + "Visa/MasterCard" + N + "</FONT>" + N
        + LI + "Cash, at the door" + N + "</FONT>" + N
        + "</FONT></LI></UL>" + N
        + "<!-- Body-list2 -->" + N
        + "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + ">"
        + "<!-- Body-body -->" + N
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + weblst
        + "<BR>"
        + "</FONT>"
        + "<!-- Body-body2 -->" + N
        + "</TD></TR></TBODY></TABLE>"
        # Location
        + "<TR>" + N
        + "<TD bgColor=" + Txt3 + ">"
        + "<!-- Body2-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "For locations of shipping I do accpet:" + N
        + "</FONT></b>" + N
        + "<!-- Body2-Cell2 -->"
        + "</TD></TR><TR>" + N
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body2-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + LI + "Will ship to the United States and the following regions<UL>" + N
        + "</FONT><BR>" + N
        + LI + "Canada" + N + "</FONT>" + N
        + LI + "Europe" + N + "</FONT>" + N
        + "</UL>" + N
        + "</FONT></LI></UL>" + N
        + "<!-- Body2-list2 -->" + N
        + "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body2-body -->"
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + weblst2
        + "<BR>"
        + "</FONT>"
        + "<!-- Body2-body2 -->"
        + "</TD></TR></TBODY></TABLE>"
        # Who pays
        + "<TR>" + N
        + "<TD bgColor=" + Txt3 + ">"
        + "<!-- Body3-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "Who pays for shipping?" + N
        + "</FONT></B>"
        + "<!-- Body3-Cell2 -->"
        + "</TD></TR><TR>" + N
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body3-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + LI + "Buyer Pays All Shipping." + N + "</FONT>" + N
        + LI + "Shipping and Handling costs - $12.50" + N + "</FONT>" + N
        + LI + "Shipping Insurance item costs - $3.05" + N + "</FONT>" + N
        + LI + "Additional item (per item) - $0.75" + N + "</FONT>" + N
        + LI + "Tax Rate: 8.25% State: NY" + N
        + "</FONT>" + N
        + "<!-- Body3-list2 -->" + N
        + "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + ">"
        + "<!-- Body3-body -->"
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + weblst3
        + "<BR>"
        + "</FONT>"
        + "<!-- Body3-body2 -->"
        + "</TD></TR></TBODY></TABLE>"
        # Close
        + "</TD></TR></TBODY></TABLE></BODY>" + N
    )


def style1(picture):
    return (
        # Opening
        "<BODY>" + N
        + "<!-- body-buildwizard1 -->" + N
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
        # Middle
        + "<BR><BR>" + N
        + "<!-- Body-line -->"
        + "<HR width=75% color=" + Txt5 + ">" + N
        + "<!-- Body-line2 -->"
        + picture
        + "<TABLE borderColor=" + Txt1 + " cellSpacing=" + Combo5
        + " cellPadding=2 width=80% align=center bgColor=" + Txt4 + " border=1>" + N
        + "<TBODY><TR>" + N
        + "<TD bgColor=" + Txt3 + ">"
        # Payment
        + "<!-- Body-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "For payment I do accept:" + N
        + "</FONT></B>"
        + "<!-- Body-Cell2 -->"
        + "</TD></TR><TR>" + N
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + LI + "Money order" + N + "</FONT>" + N
        + LI + "Visa/MasterCard" + N + "</FONT>" + N
        + LI + "Cash, at the door" + N + "</FONT>" + N
        + "</FONT></LI></UL>" + N
        + "<!-- Body-list2 -->" + N
        + "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + ">"
        + "<!-- Body-body -->" + N
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + weblst
        + "<BR>"
        + "</FONT>"
        + "<!-- Body-body2 -->" + N
        + "</TD></TR></TBODY></TABLE>"
        # Location
        + "<TR>" + N
        + "<TD bgColor=" + Txt3 + ">"
        + "<!-- Body2-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "For locations of shipping I do accpet:" + N
        + "</FONT></b>" + N
        + "<!-- Body2-Cell2 -->"
        + "</TD></TR><TR>" + N
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body2-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + LI + "Will ship to the United States and the following regions<UL>" + N
        + "</FONT><BR>" + N
        + LI + "Canada" + N + "</FONT>" + N
        + LI + "Europe" + N + "</FONT>" + N
        + "</UL>" + N
        + "</FONT></LI></UL>" + N
        + "<!-- Body2-list2 -->" + N
        + "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + ">"
        + "<!-- Body2-body -->"
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + weblst2
        + "<BR>"
        + "</FONT>"
        + "<!-- Body2-body2 -->"
        + "</TD></TR></TBODY></TABLE>"
        # Who pays
        + "<TR>" + N
        + "<TD bgColor=" + Txt3 + ">"
        + "<!-- Body3-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "Who pays for shipping?" + N
        + "</FONT></B>"
        + "<!-- Body3-Cell2 -->"
        + "</TD></TR><TR>" + N
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body3-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + LI + "Buyer Pays All Shipping." + N + "</FONT>" + N
        + LI + "Shipping and Handling costs - $12.50" + N + "</FONT>" + N
        + LI + "Shipping Insurance item costs - $3.05" + N + "</FONT>" + N
        + LI + "Additional item (per item) - $0.75" + N + "</FONT>" + N
        + LI + "Tax Rate: 8.25% State: NY" + N
        + "</FONT>" + N
        + "<!-- Body3-list2 -->" + N
        + "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + ">"
        + "<!-- Body3-body -->"
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + weblst3
        + "<BR>"
        + "</FONT>"
        + "<!-- Body3-body2 -->"
        + "</TD></TR></TBODY></TABLE>"
        # Close
        + "</TD></TR></TBODY></TABLE></BODY>" + N
    )


def style2(picture):
    return (
        # Opening
        "<BODY>" + N
        + "<!-- body-buildwizard2 -->" + N
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
        # Middle
        + "<BR><BR></TD></TR>" + N
        + "<TR>" + N
        + "<TD align=middle width=0 bgColor=" + Txt2 + " colSpan=2 height=0>" + N
        + picture
        + "</TD></TR><TR>" + N
        + "<TD bgColor=" + Txt3 + ">"
        # Payment
        + "<!-- Body-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "For payment I do accept:" + N
        + "</FONT></B>"
        + "<!-- Body-Cell2 -->"
        + "</TD></TR><TR>" + N
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + LI + "Money order" + N + "</FONT>" + N
        + LI + "Visa/MasterCard" + N + "</FONT>" + N
        + LI + "Cash, at the door" + N + "</FONT>" + N
        + "</FONT></LI></UL>" + N
        + "<!-- Body-list2 -->" + N
        + "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body-body -->" + N
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + weblst
        + "<BR>"
        + "</FONT>"
        + "<!-- Body-body2 -->" + N
        + "</TD></TR></TBODY></TABLE>"
        # Location
        + "<TR>" + N
        + "<TD bgColor=" + Txt3 + "><B>"
        + "<!-- Body2-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "For locations of shipping I do accpet:" + N
        + "</FONT></B>" + N
        + "<!-- Body2-Cell2 -->"
        + "</TD></TR>" + N
        + "<TR>" + N
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body2-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + LI + "Will ship to the United States and the following regions<UL>" + N
        + "</FONT><BR>" + N
        + LI + "Canada" + N + "</FONT>" + N
        + LI + "Europe" + N + "</FONT>" + N
        + "</UL>" + N
        + "</LI></UL>" + N
        + "<!-- Body2-list2 -->" + N
        + "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body2-body -->"
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + weblst2
        + "<BR>"
        + "</FONT>"
        + "<!-- Body2-body2 -->"
        + "</TD></TR></TBODY></TABLE>" + N
        # Who pays
        + "<TR>" + N
        + "<TD bgColor=" + Txt3 + "><B>"
        + "<!-- Body3-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "Who pays for shipping?" + N
        + "</FONT></B>"
        + "<!-- Body3-Cell2 -->"
        + "</TD></TR>" + N
        + "<TR>" + N
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body3-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + LI + "Buyer Pays All Shipping." + N + "</FONT>" + N
        + LI + "Shipping and Handling costs - $12.50" + N + "</FONT>" + N
        + LI + "Shipping Insurance item costs - $3.05" + N + "</FONT>" + N
        + LI + "Additional item (per item) - $0.75" + N + "</FONT>" + N
        + LI + "Tax Rate: 8.25% State: NY" + N
        + "</FONT>" + N
        + "<!-- Body3-list2 -->" + N
        + "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body3-body -->"
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + weblst3
        + "<BR>"
        + "</FONT>"
        + "<!-- Body3-body2 -->"
        + "</TD></TR></TBODY></TABLE>"
        # Close
        + "</TD></TR></TBODY></TABLE></BODY>" + N
    )


def style3(picture):
    return (
        # Opening
        "<BODY>" + N
        + "<!-- body-buildwizard3 -->" + N
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
        # Middle
        + "<BR><BR></TD></TR><TR>" + N
        + "<TD bgColor=" + Txt3 + ">"
        + "<!-- Body4-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "Description:" + N
        + "</FONT></B>" + N
        + "<!-- Body4-Cell2 -->"
        + "</TD></TR>"
        + "<TR>"
        + "<TD bgColor=" + Txt2 + ">"
        + "<TABLE height=0% cellPadding=20 width=100% align=left border=0>" + N
        + "<TBODY>"
        + "<TR>"
        + "<TD bgColor=" + Txt2 + ">"
        + picture
        + "</TD></TR></TBODY></TABLE></TD></TR>"
        + "<TR>"
        + "<TD bgColor=" + Txt3 + ">"
        # Payment
        + "<!-- Body-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "For payment I do accept:" + N
        + "</FONT></B>"
        + "<!-- Body-Cell2 -->"
        + "</TD></TR><TR>" + N
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + LI + "Money order" + N + "</FONT>" + N
        + LI + "Visa/MasterCard" + N + "</FONT>" + N
        + LI + "Cash, at the door" + N + "</FONT>" + N
        + "</FONT></LI></UL>" + N
        + "<!-- Body-list2 -->" + N
        + "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + ">"
        + "<!-- Body-body -->" + N
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + weblst
        + "<BR>"
        + "</FONT>"
        + "<!-- Body-body2 -->" + N
        + "</TD></TR></TBODY></TABLE>" + N
        # Location
        + "<TR>" + N
        + "<TD bgColor=" + Txt3 + "><B>"
        + "<!-- Body2-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "For locations of shipping I do accpet:" + N
        + "</FONT></b>" + N
        + "<!-- Body2-Cell2 -->"
        + "</TD></TR>" + N
        + "<TR>" + N
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body2-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + LI + "Will ship to the United States and the following regions<UL>" + N
        + "</FONT><BR>" + N
        + LI + "Canada" + N + "</FONT>" + N
        + LI + "Europe" + N + "</FONT>" + N
        + "</UL>" + N
        + "</LI></UL>" + N
        + "<!-- Body2-list2 -->" + N
        + "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + ">"
        + "<!-- Body2-body -->"
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + weblst2
        + "<BR>"
        + "</FONT>"
        + "<!-- Body2-body2 -->"
        + "</TD></TR></TBODY></TABLE>" + N
        # Who pays
        + "<TR>" + N
        + "<TD bgColor=" + Txt3 + "><B>"
        + "<!-- Body3-Cell -->"
        + "<B><FONT face=Arial color=" + Txt6 + " size=3>" + N
        + "Who pays for shipping?" + N
        + "</FONT></B>"
        + "<!-- Body3-Cell2 -->"
        + "</TD></TR>" + N
        + "<TR>" + N
        + "<TD bgColor=" + Txt2 + "><BR>"
        + "<!-- Body3-list -->" + N
        + "<FONT color=#000000>" + N
        + "<UL>" + N
        + LI + "Buyer Pays All Shipping." + N + "</FONT>" + N
        + LI + "Shipping and Handling costs - $12.50" + N + "</FONT>" + N
        + LI + "Shipping Insurance item costs - $3.05" + N + "</FONT>" + N
        + LI + "Additional item (per item) - $0.75" + N + "</FONT>" + N
        + "<LI><FONT face=Arial color=" + Txt9 + "0 size=3>" + N + "Tax Rate: 8.25% State: NY" + N
        + "</FONT>" + N
        + "<!-- Body3-list2 -->" + N
        + "<TABLE borderColor=#0000ff height=0% cellSpacing=0 cellPadding=20 width=0% align=left bgColor=#00ff00 border=0>"
        + "<TBODY><TR>"
        + "<TD bgColor=" + Txt2 + ">"
        + "<!-- Body3-body -->"
        + "<FONT color=" + Txt9 + " size=3 face=Arial>" + N
        + weblst3
        + "<BR>"
        + "</FONT>"
        + "<!-- Body3-body2 -->"
        + "</TD></TR></TBODY></TABLE>"
        # Close
        + "</TD></TR></TBODY></TABLE></BODY>" + N
    )


def main():
    folder = pathlib.Path(__file__).parent
    check = sys.argv[1:] == ["--check"]
    differing = []
    for number, style in enumerate((style0, style1, style2, style3)):
        for picture_number, picture in enumerate((picture0, picture1, picture2, picture3)):
            file = folder / f"listing-style{number}-picture{picture_number}.htm"
            page = style(picture()).encode()
            if not check:
                file.write_bytes(page)
            elif not file.is_file() or file.read_bytes() != page:
                differing.append(file.name)
    if differing:
        sys.exit("not as this script writes them: " + ", ".join(differing))


if __name__ == "__main__":
    main()
