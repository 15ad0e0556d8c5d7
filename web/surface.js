// SPDX-License-Identifier: GPL-3.0-or-later
/**
 * What the control does in the document that it shows. Runs in a world of its own, which shares the document with
 * the page's scripts and nothing else; what a page replaces or hides, as by <FORM name=write>, stays untouched here,
 * because all is called through the prototypes.
 *
 * The file is one expression, evaluated once in each page; its value is the object of these functions. `serialise`
 * and the rest come from serialise.js.
 */
(function (functions) {
'use strict';

const { serialise, holdBack, HOLDER, isBlock, standsByItself } = functions;

const body = () => Object.getOwnPropertyDescriptor(Document.prototype, 'body').get.call(document);
const command = (name, value) => Document.prototype.execCommand.call(document, name, false, value);
const selectedRange = () => getSelection().rangeCount > 0 ? getSelection().getRangeAt(0) : null;

/** Hides the whole page, so that nothing is laid out. */
const HIDDEN = new CSSStyleSheet();
HIDDEN.replaceSync(':root { display: none !important }');

function reveal() {
    document.adoptedStyleSheets = [];
}

/** An editing command works where the caret is: there has to be one. */
function placeCaret() {
    if (!selectedRange() && body())
        getSelection().collapse(body(), 0);
}

/** The A in which the caret or the whole selection is. */
function linkAtCaret() {
    const range = selectedRange();
    const node = range && range.commonAncestorContainer;
    const element = node instanceof Text ? node.parentNode : node;
    return element instanceof Element ? Element.prototype.closest.call(element, 'a[href]') : null;
}

const escapeHtml = text => text.replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/"/g, '&quot;');

/**
 * A long fragment with what lies between its first and its last block in a DIV that is not printed. The engine splits the
 * paragraph at the caret around each block that it inserts, which takes a time with the square of their number; those
 * between the first and the last it leaves as they are, whatever stands around them.
 */
function bundled(fragment) {
    const template = Document.prototype.createElement.call(document, 'template');
    template.innerHTML = fragment;
    const nodes = Array.from(template.content.childNodes);
    const blocks = nodes.filter(isBlock);
    const middle = nodes.slice(nodes.indexOf(blocks[0]) + 1, nodes.indexOf(blocks[blocks.length - 1]));
    if (middle.length < MANY_ELEMENTS || !middle.every(standsByItself))
        return fragment;
    const bundle = Document.prototype.createElement.call(document, 'div');
    bundle.setAttribute(HOLDER, '');
    middle[0].before(bundle);
    bundle.append(...middle);
    return template.innerHTML;
}

/** The function of clean.js, once it was needed in this page. */
let clean = null;

/** From how much on a command may take seconds on a slow machine. */
const MANY_ELEMENTS = 100;
const MANY_LETTERS = 20000;

/** Whether this page was found ready once. */
let started = false;

/** Whether a design surface was edited and nobody has read it since. */
let edited = false;
const observer = new MutationObserver(() => { edited = true; });

function forgetEdits() {
    observer.takeRecords();
    edited = false;
}

return {
    /**
     * Makes the empty page ready; on a design surface to be edited, with FONT and B instead of styles and P for a
     * new paragraph. False: this is still the page before it.
     */
    start(design) {
        if (started)
            return false;
        started = true;
        window.name = ''; // what a script of the document before left
        if (history.state !== null)
            history.replaceState(null, '');
        if (design) {
            document.designMode = 'on';
            placeCaret();
            command('styleWithCSS', false);
            command('defaultParagraphSeparator', 'p');
            observer.observe(document, { subtree: true, childList: true, attributes: true, characterData: true });
        }
        return true;
    },

    /**
     * Replaces the document by a text. On a design surface the page stays hidden until `reveal`: laying it out takes
     * ten times as long as parsing it, and what is read back in the same breath needs no layout.
     */
    write(text, design) {
        Document.prototype.open.call(document);
        Document.prototype.write.call(document, holdBack(text));
        if (design)
            document.adoptedStyleSheets = [HIDDEN];
        Document.prototype.close.call(document);
        if (design)
            placeCaret();
        forgetEdits();
        return true;
    },

    reveal,
    forgetEdits,

    /** The text of a design surface that was edited since this was last asked; null when it was not. */
    edits() {
        const news = observer.takeRecords().length > 0 || edited;
        edited = false;
        return news ? serialise(document, false) : null;
    },

    /** The same before a command on the selection, or a paste of so many letters, that may take long; else null. */
    editsAhead(pasted) {
        const range = selectedRange();
        const node = range && !range.collapsed ? range.commonAncestorContainer : null;
        const elements = node instanceof Element ? Element.prototype.getElementsByTagName.call(node, '*').length : 0;
        return elements > MANY_ELEMENTS || pasted > MANY_LETTERS ? this.edits() : null;
    },

    innerHtml(scripting) {
        return serialise(document, scripting);
    },

    execCommand(name, value) {
        reveal();
        placeCaret();
        return command(name, value);
    },

    /** The selection as [text, HTML]; blanks that must not break are blanks in the text. */
    selection() {
        reveal();
        const range = selectedRange();
        if (!range || range.collapsed)
            return ['', ''];
        const holder = Document.prototype.createElement.call(document, 'div');
        holder.append(range.cloneContents());
        for (const bundle of holder.querySelectorAll('[' + HOLDER + ']'))
            bundle.replaceWith(...bundle.childNodes);
        return [String(getSelection()).replace(/\u00a0/g, ' '), holder.innerHTML];
    },

    /** Whether `paste` takes HTML; else `cleanWith` comes first. */
    canClean() {
        return clean !== null;
    },
    cleanWith(cleaner) {
        clean = cleaner;
        return true;
    },

    /** Inserts what comes from elsewhere at the caret or, when a point of the window is given, there. */
    paste(text, html, point) {
        reveal();
        placeCaret();
        const range = point && Document.prototype.caretRangeFromPoint.call(document, point[0], point[1]);
        if (range)
            getSelection().collapse(range.startContainer, range.startOffset);
        const fragment = html && clean(html);
        return fragment ? command('insertHTML', bundled(fragment)) : command('insertText', text);
    },

    /** The address of the link at the caret, as the page has it; empty when there is none. */
    link() {
        const link = linkAtCaret();
        return link ? link.getAttribute('href') : '';
    },

    /** Changes or, without an address, removes the link at the caret; makes one of the selection or the address. */
    setLink(address) {
        reveal();
        placeCaret();
        const link = linkAtCaret();
        if (link)
            getSelection().selectAllChildren(link);
        if (address === '')
            return command('unlink', '');
        if (getSelection().isCollapsed)
            return command('insertHTML', '<a href="' + escapeHtml(address) + '">' + escapeHtml(address) + '</a>');
        return command('createLink', address);
    },

    /** A caret that was set before the keyboard focus came takes no typed letters: sets it anew. */
    renewCaret() {
        reveal();
        const selection = getSelection();
        const { anchorNode, anchorOffset, focusNode, focusOffset } = selection;
        selection.removeAllRanges();
        if (anchorNode)
            selection.setBaseAndExtent(anchorNode, anchorOffset, focusNode, focusOffset);
        else
            placeCaret();
        return true;
    },
};
})
