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

/** The document's own properties. */
const own = name => Reflect.get(Document.prototype, name, document);
const setOwn = (name, value) => Reflect.set(Document.prototype, name, value, document);

const body = () => own('body');
const command = (name, value) => Document.prototype.execCommand.call(document, name, false, value);
const selectedRange = () => getSelection().rangeCount > 0 ? getSelection().getRangeAt(0) : null;

/** Hides the whole page, so that nothing is laid out. */
const HIDDEN = new CSSStyleSheet();
HIDDEN.replaceSync(':root { display: none !important }');

/** On paper there is no caret. */
const SHOWN = new CSSStyleSheet();
SHOWN.replaceSync('@media print { :root { caret-color: transparent !important } }');

function reveal() {
    setOwn('adoptedStyleSheets', [SHOWN]);
    const caret = caretToShow;
    caretToShow = null;
    if (!caret)
        return;
    // A page that gets the keyboard while it is hidden takes the caret for one that is nowhere, and sets its own.
    getSelection().collapse(caret.startContainer, caret.startOffset);
    bringToView(caret);
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

/** Stands between the letters of two text nodes: it parts no word. */
const APART = '\u2060';
/** Stands by itself where a line ends. */
const LINE_END = '\u2029';

/** Elements that end no line. */
const WITHIN_LINE = /^(?:a|abbr|b|big|cite|code|del|em|font|i|img|ins|kbd|s|small|span|strike|strong|sub|sup|tt|u)$/;

/** Elements whose text nobody sees. */
const UNSEEN = /^(?:script|style|noscript|template)$/;

/** The text nodes of an element, and LINE_END where a line ends between two of them. */
function textsOf(element) {
    const walker = Document.prototype.createTreeWalker.call(document, element, NodeFilter.SHOW_TEXT | NodeFilter.SHOW_ELEMENT);
    const endsLine = node => !WITHIN_LINE.test(node.localName);
    const blockOf = node => {
        let block = node.parentNode;
        while (block !== element && !endsLine(block))
            block = block.parentNode;
        return block;
    };
    const texts = [];
    let lineEnded = false;
    while (walker.nextNode()) {
        const node = walker.currentNode;
        if (UNSEEN.test(node.parentNode.localName))
            continue;
        if (node instanceof Text) {
            const before = texts[texts.length - 1];
            if (before && (lineEnded || blockOf(before) !== blockOf(node)))
                texts.push(LINE_END);
            texts.push(node);
            lineEnded = false;
        } else if (endsLine(node)) {
            lineEnded = true;
        }
    }
    return texts;
}

/** Hears of what happens anywhere in the page. The page that is written next knows nothing of it. */
const listen = (event, heard) => EventTarget.prototype.addEventListener.call(window, event, heard, true);

const selectBetween = (start, startOffset, end, endOffset) => getSelection().setBaseAndExtent(start, startOffset, end, endOffset);

/** What of each text node is selected, as { node, start, end }, and LINE_END where a line ends between two of them. */
function selectedTexts(range) {
    const around = range.commonAncestorContainer;
    const selected = [];
    let lineEnded = false;
    for (const node of textsOf(around instanceof Text ? around.parentNode : around)) {
        if (node === LINE_END) {
            lineEnded = true;
        } else if (range.intersectsNode(node)) {
            const start = node === range.startContainer ? range.startOffset : 0;
            const end = node === range.endContainer ? range.endOffset : node.length;
            if (start === end)
                continue;
            if (lineEnded && selected.length > 0)
                selected.push(LINE_END);
            lineEnded = false;
            selected.push({ node, start, end });
        }
    }
    return selected;
}

const replaced = (text, at, count, letters) => text.slice(0, at) + letters + text.slice(at + count);

/**
 * Letters that were changed in place. Whatever the engine replaces beyond one text it takes apart, with its formats, lists and
 * tables; so it is given one letter, which makes the step of undo, and all others follow that.
 */
class LetterChange {
    /** The texts as { node, before, after }; what was selected, and where that ends when they are changed. */
    constructor(texts, range, endAfter) {
        this.texts = texts;
        this.start = [range.startContainer, range.startOffset];
        this.ends = { before: [range.endContainer, range.endOffset], after: [range.endContainer, endAfter] };
    }

    /** Finds the first letter that changes and is seen, where the engine works. */
    findLetter() {
        const letter = Document.prototype.createRange.call(document);
        for (const text of this.texts) {
            const { node, before, after } = text;
            let at = 0;
            while (before[at] === after[at])
                ++at;
            if (/[\udc00-\udfff]/.test(before[at]))
                --at;
            const [from, to] = [before, after].map(letters => String.fromCodePoint(letters.codePointAt(at)));
            letter.setStart(node, at);
            letter.setEnd(node, at + from.length);
            if (letter.getClientRects().length > 0) {
                this.letter = { text, at, from, to };
                // How the text stands when the engine has changed the letter and nothing has followed yet.
                this.letter.after = replaced(before, at, from.length, to);
                this.letter.before = replaced(after, at, to.length, from);
                return true;
            }
        }
        return false;
    }

    make() {
        if (!this.findLetter())
            return false;
        const { text, at, from, to } = this.letter;
        selectBetween(text.node, at, text.node, at + from.length);
        const isChanged = command('insertText', to);
        if (isChanged && this.isTurned('after')) {
            this.follow('after');
            return true;
        }
        if (isChanged)
            command('undo'); // it was more than the letter
        selectBetween(...this.start, ...this.ends.before);
        return false;
    }

    /** Whether the engine has just brought its letter to what it was before or after, and nothing else is different. */
    isTurned(to) {
        const from = to === 'before' ? 'after' : 'before';
        return this.texts.every(text => text.node.data === (text === this.letter.text ? this.letter[to] : text[from]));
    }

    follow(to) {
        this.texts.forEach(text => { text.node.data = text[to]; });
        selectBetween(...this.start, ...this.ends[to]);
    }
}

/** Those of this page, the last one last, and those that were taken back, the first one last. */
let changesDone = [];
let changesUndone = [];

function followUndo(event) {
    const turn = (from, to, state) => {
        const change = from[from.length - 1];
        if (!change || !change.isTurned(state))
            return;
        change.follow(state);
        to.push(from.pop());
    };
    if (event.inputType === 'historyUndo')
        turn(changesDone, changesUndone, 'before');
    else if (event.inputType === 'historyRedo')
        turn(changesUndone, changesDone, 'after');
}

/** With these the engine goes on with one step of undo, as long as nothing else moves the caret. */
const TYPING = /^(?:insert(?:Text|Paragraph|LineBreak|CompositionText)|deleteContent(?:Backward|Forward))$/;

/** Input that is one step of undo by itself. */
const ONE_STEP = /^(?:format\w+|insertFromPaste|insertReplacementText|deleteByCut|delete(?:Word|SoftLine|HardLine)(?:Backward|Forward))$/;

/**
 * The steps that undo takes back, the last one last, and those that redo brings again, as { name, start, end }. What is typed
 * may be several steps for the engine; so it tells what the page was like in front of it and behind it.
 */
let stepsDone = [];
let stepsUndone = [];

/** The command of ours that runs, and whether it has made its step. */
let running = '';
let stepMade = false;

/** Where the caret stood behind the last letter; null: the next one begins another step. */
let typedTo = null;

/** Whether nothing was done in the page since it was written: the engine's history may still be that of the one before. */
let untouched = false;

/** The name of input that is a step by itself. */
const nameOf = type => /^delete(?!ByCut)/.test(type) ? 'delete' : type.replace(/^format/, '').toLowerCase();

function caret() {
    const { anchorNode, anchorOffset, isCollapsed } = getSelection();
    return isCollapsed && anchorNode ? [anchorNode, anchorOffset] : null;
}

function endTypingElsewhere() {
    const now = caret();
    if (typedTo !== null && (now === null || now[0] !== typedTo[0] || now[1] !== typedTo[1]))
        typedTo = null;
}

/** What tells apart the page before something was typed and behind it. */
const likeness = () => body() ? body().textContent.length + ' ' + body().getElementsByTagName('*').length : '';

let beforeTyping = '';

function noteLikeness(event) {
    endTypingElsewhere();
    if (typedTo === null && TYPING.test(event.inputType))
        beforeTyping = likeness();
    else if (event.inputType === 'historyUndo')
        noteEndOfTyping();
}

function noteEndOfTyping() {
    const step = stepsDone[stepsDone.length - 1];
    if (step && step.name === 'typing' && step.end === null)
        step.end = likeness();
}

/** Follows an undo to the start of a step, or a redo to its end; the engine may have more to do in one that was typed. */
function turnStep(from, to, side) {
    const step = from[from.length - 1];
    if (!step)
        return;
    if (to[to.length - 1] !== step)
        to.push(step);
    if (step.name !== 'typing' || likeness() === step[side])
        from.pop();
}

function followSteps(event) {
    untouched = false;
    const type = event.inputType;
    const isTyping = running === '' && TYPING.test(type);
    if (type === 'historyUndo') {
        turnStep(stepsDone, stepsUndone, 'start');
    } else if (type === 'historyRedo') {
        turnStep(stepsUndone, stepsDone, 'end');
    } else if (running === '' && !isTyping && !ONE_STEP.test(type)) {
        stepsDone = []; // nobody knows how many there are
        stepsUndone = [];
    } else {
        if (!stepMade && !(isTyping && typedTo))
            stepsDone.push({
                name: running || (isTyping ? 'typing' : nameOf(type)),
                start: beforeTyping,
                end: null,
            });
        stepMade = running !== '';
        stepsUndone = [];
    }
    typedTo = isTyping ? caret() : null;
}

/** Runs a command of ours, which may have many inputs, as one step. */
function asStep(name, act) {
    running = name;
    stepMade = false;
    const done = act();
    running = '';
    stepMade = false;
    return done;
}

/** Inserts letters as a step by itself: for the engine they are typed, and go on what was typed before. */
function insertText(text) {
    if (typedTo !== null)
        renewCaret();
    const done = command('insertText', text);
    renewCaret();
    return done;
}

function listenToSteps() {
    stepsDone = [];
    stepsUndone = [];
    typedTo = null;
    listen('beforeinput', noteLikeness);
    listen('selectionchange', endTypingElsewhere);
    listen('input', followSteps);
}

/** A caret that was set before the keyboard focus came takes no typed letters: sets it anew. */
function renewCaret() {
    const selection = getSelection();
    const { anchorNode, anchorOffset, focusNode, focusOffset } = selection;
    selection.removeAllRanges();
    if (anchorNode)
        selection.setBaseAndExtent(anchorNode, anchorOffset, focusNode, focusOffset);
    else
        placeCaret();
}

/** The function of clean.js, once it was needed in this page. */
let clean = null;

/** From how much on a command may take seconds on a slow machine. */
const MANY_ELEMENTS = 100;
const MANY_LETTERS = 20000;

/** Blanks of all kinds, which a page has more or less of than its source. */
const BLANKS = /[\x00-\x20\xa0]/g;
const isBlank = letter => letter <= ' ' || letter === '\xa0';
const seenIn = letters => letters.replace(BLANKS, '').length;

/** How many letters stand in front of the selection, and whether it begins right behind the last of them. */
function lettersAhead(range) {
    const start = range.startContainer;
    const at = range.cloneRange();
    at.collapse(true);
    let letters = 0;
    for (const text of textsOf(body())) {
        if (text === LINE_END)
            continue;
        if (text === start) {
            const before = text.data.slice(0, range.startOffset);
            return [letters + seenIn(before), before !== '' && !isBlank(before[before.length - 1])];
        }
        if (at.comparePoint(text, 0) > 0)
            break;
        letters += seenIn(text.data);
    }
    return [letters, false];
}

/** The place right behind so many letters, or right in front of the next one, as [node, offset]; null: there are less. */
function placeBehind(letters, isBehind) {
    let ahead = 0;
    for (const text of textsOf(body())) {
        if (text === LINE_END)
            continue;
        const here = seenIn(text.data);
        if (isBehind ? ahead + here < letters : ahead + here <= letters) {
            ahead += here;
            continue;
        }
        for (let offset = 0; offset <= text.length; ++offset) {
            const isNext = offset < text.length && !isBlank(text.data[offset]);
            if (ahead === letters && (isBehind || isNext))
                return [text, offset];
            if (isNext)
                ++ahead;
        }
    }
    return isBehind ? null : placeBehind(letters, true); // there is no next one
}

/** Where the caret was put and is to be brought into view, when the page is laid out. */
let caretToShow = null;

function bringToView(range) {
    const box = range.getBoundingClientRect();
    if (box.top < 0 || box.bottom > innerHeight || box.left < 0 || box.right > innerWidth)
        scrollBy(box.left - innerWidth / 2, box.top - innerHeight / 2);
}

/** Whether this page was found ready once. */
let started = false;

/** Whether a design surface was edited and nobody has read it since. */
let edited = false;
const observer = new MutationObserver(() => { edited = true; });

function forgetEdits() {
    observer.takeRecords();
    edited = false;
}

// ---- The live view, in which each element of the source says where its tag begins

/** The attribute that says so. */
const PLACE = 'data-place';

const placeOf = element => Number(Element.prototype.getAttribute.call(element, PLACE));
const boxOf = element => Element.prototype.getBoundingClientRect.call(element);

/** The elements that have a place, in the order of the source; made when first asked for. */
let placed = null;

function placedElements() {
    if (placed === null) {
        placed = Array.from(Document.prototype.querySelectorAll.call(document, '[' + PLACE + ']'));
        placed.sort((one, other) => placeOf(one) - placeOf(other)); // what a table has moved stands elsewhere
    }
    return placed;
}

/** The last element that is seen and begins at a place or before it. */
function elementAt(place) {
    const elements = placedElements();
    let low = 0;
    let high = elements.length;
    while (low < high) {
        const middle = (low + high) >> 1;
        if (placeOf(elements[middle]) <= place)
            low = middle + 1;
        else
            high = middle;
    }
    while (low > 0 && Element.prototype.getClientRects.call(elements[low - 1]).length === 0)
        --low;
    return low > 0 ? elements[low - 1] : null;
}

/** Whether an element is wider than the view because it says so, or is a picture; others are widened by what they hold. */
function isWideItself(element) {
    if (boxOf(element).width <= innerWidth)
        return false;
    const style = element instanceof HTMLElement ? Reflect.get(HTMLElement.prototype, 'style', element) : element.style;
    const width = Element.prototype.getAttribute.call(element, 'width') || style.width || '';
    return element instanceof HTMLImageElement || (parseFloat(width) > innerWidth && !width.includes('%'));
}

/** Scrolls to an element, so that the view's edge of that name or its middle has it. */
const scrollToElement = (element, block) => Element.prototype.scrollIntoView.call(element, { block, inline: 'nearest' });

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
            listenToSteps();
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
            setOwn('adoptedStyleSheets', [HIDDEN]);
        Document.prototype.close.call(document);
        if (design) {
            placeCaret();
            listenToSteps();
            untouched = true;
        }
        changesDone = [];
        changesUndone = [];
        caretToShow = null;
        forgetEdits();
        return true;
    },

    /** Replaces the document of a live view by a text. It stays scrolled to where it was. */
    writeLive(text) {
        const wanted = [scrollX, scrollY];
        this.write(text, false);
        placed = null;
        scrollTo(...wanted);
        let reached = scrollY;
        // Pictures that come later make the page as long as it was.
        listen('load', () => {
            if (scrollY === reached) {
                scrollTo(...wanted);
                reached = scrollY;
            }
        });
        return true;
    },

    /** Brings what stands at a place of the source into view, unless it is, and marks it for a moment. */
    showPlace(place) {
        const element = elementAt(place);
        if (!element)
            return;
        const box = boxOf(element);
        if (box.bottom < 0 || box.top > innerHeight)
            scrollToElement(element, 'center');
        Element.prototype.animate.call(element, [{ outline: '3px solid rgba(255, 140, 0, 1)' },
            { outline: '3px solid rgba(255, 140, 0, 0)' }], 1000);
    },

    /** Brings what stands at a place of the source to the view's upper edge. */
    bringToTop(place) {
        const element = elementAt(place);
        if (element)
            scrollToElement(element, 'start');
    },

    /** The place of the element at a point of the view; -1 where there is none. */
    placeAtPoint(x, y) {
        const element = Document.prototype.elementFromPoint.call(document, x, y);
        const placed = element && Element.prototype.closest.call(element, '[' + PLACE + ']');
        return placed ? placeOf(placed) : -1;
    },

    /** The place of the uppermost element that begins in view; -1 where there is none. */
    topPlace() {
        let top = null;
        for (const element of placedElements()) {
            const box = boxOf(element);
            if (box.top >= 0 && box.width > 0 && (top === null || box.top < boxOf(top).top))
                top = element;
        }
        return top ? placeOf(top) : -1;
    },

    /** Whether all pictures are there, the width of the page, and the place of what sticks out most; -1: nothing. */
    widths() {
        const outside = placedElements().filter(element => boxOf(element).right > innerWidth);
        const causes = outside.filter(isWideItself);
        const widest = (causes.length > 0 ? causes : outside).reduce((widest, element) =>
            widest && boxOf(widest).width > boxOf(element).width ? widest : element, null);
        return [Array.from(own('images')).every(image => image.complete), own('scrollingElement').scrollWidth, widest ? placeOf(widest) : -1];
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
        const id = name.toLowerCase();
        if (id === 'undo')
            noteEndOfTyping();
        return id === 'undo' || id === 'redo' ? command(id, value) : asStep(id, () => command(name, value));
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

    /** The letters that are selected, with APART between those of two text nodes; empty without a selection. */
    selectedLetters() {
        reveal();
        const range = selectedRange();
        this.selected = range ? selectedTexts(range) : [];
        return this.selected.map(text => text === LINE_END ? text : text.node.data.slice(text.start, text.end)).join(APART);
    },

    /** Puts changed letters in place of those that `selectedLetters` has told. */
    replaceLetters(letters) {
        const parts = letters.split(APART);
        if (parts.length !== this.selected.length)
            return false;
        const range = selectedRange();
        let endAfter = range.endOffset;
        const texts = [];
        this.selected.forEach((text, i) => {
            if (text === LINE_END)
                return;
            const { node, start, end } = text;
            if (node === range.endContainer)
                endAfter = start + parts[i].length;
            const after = replaced(node.data, start, end - start, parts[i]);
            if (after !== node.data)
                texts.push({ node, before: node.data, after });
        });
        if (texts.length === 0)
            return true;
        const change = new LetterChange(texts, range, endAfter);
        if (!asStep('letters', () => change.make()))
            return false;
        changesDone.push(change);
        changesUndone = [];
        listen('input', followUndo);
        return true;
    },

    /** Whether `paste` takes HTML; else `cleanWith` comes first. */
    canClean() {
        return clean !== null;
    },
    cleanWith(cleaner) {
        clean = cleaner;
        return true;
    },

    /** The letters of the page, LINE_END between its lines, and how many of them stand in front of the caret or end in the selection. */
    letters() {
        reveal();
        placeCaret();
        const range = selectedRange();
        const end = range.endContainer;
        let letters = '';
        let ahead = 0;
        for (const text of textsOf(body())) {
            if (text === end)
                ahead = letters.length + range.endOffset;
            letters += text instanceof Text ? text.data : text;
            if (text instanceof Text && !(end instanceof Text) && range.comparePoint(text, 0) <= 0)
                ahead = letters.length;
        }
        return [letters, ahead];
    },

    /** Selects some of the letters that `letters` has told, and brings them into view. */
    selectLetters(start, end) {
        const selected = Document.prototype.createRange.call(document);
        let before = 0;
        for (const text of textsOf(body())) {
            if (text instanceof Text && start >= before && start < before + text.length)
                selected.setStart(text, start - before);
            if (text instanceof Text && end > before && end <= before + text.length)
                selected.setEnd(text, end - before);
            before += text.length;
        }
        getSelection().removeAllRanges();
        getSelection().addRange(selected);
        bringToView(selected);
        return true;
    },

    /** Where the selection begins (see `lettersAhead`). */
    caret() {
        const range = caretToShow || selectedRange();
        return range && body() ? lettersAhead(range) : [0, false];
    },

    /** Puts the caret to a place that `caret` has told of this page or of its source, and shows it as soon as the page is laid out. */
    setCaret(letters, isBehind) {
        const place = body() && placeBehind(letters, isBehind);
        if (!place)
            return;
        const [node, offset] = place;
        getSelection().collapse(node, offset);
        caretToShow = getSelection().getRangeAt(0).cloneRange();
        caretToShow.setEnd(node, Math.min(offset + 1, node.length)); // a caret has no place at the end of a line
        if (own('adoptedStyleSheets')[0] !== HIDDEN)
            reveal();
    },

    /** What `paste` would insert as HTML; empty where the text says more. */
    cleaned(text, html, withLooks) {
        if (html === '')
            return '';
        const body = clean(html, withLooks);
        // Some programs give out their text as HTML as it is: its "<" is none, and its lines are lost.
        const letters = words => words.replace(/\s/g, '');
        return body.firstElementChild === null && text !== '' && letters(text) !== letters(body.textContent) ? '' : body.innerHTML;
    },

    /** Inserts what comes from elsewhere at the caret or, when a point of the window is given, there. */
    paste(text, html, withLooks, point) {
        reveal();
        placeCaret();
        const range = point && Document.prototype.caretRangeFromPoint.call(document, point[0], point[1]);
        if (range)
            getSelection().collapse(range.startContainer, range.startOffset);
        const fragment = this.cleaned(text, html, withLooks);
        return asStep('paste', () => fragment ? command('insertHTML', bundled(fragment)) : insertText(text));
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
        return asStep('link', () => {
            if (address === '')
                return command('unlink', '');
            if (getSelection().isCollapsed)
                return command('insertHTML', '<a href="' + escapeHtml(address) + '">' + escapeHtml(address) + '</a>');
            return command('createLink', address);
        });
    },

    renewCaret() {
        reveal();
        renewCaret();
        return true;
    },

    /**
     * Whether something can be undone, what has made it, whether something can be brought again, and likewise; "edit" where
     * nobody knows what it is.
     */
    steps() {
        const told = (name, steps) => {
            const can = !untouched && Document.prototype.queryCommandEnabled.call(document, name);
            const last = steps[steps.length - 1];
            return [can, last ? last.name : can ? 'edit' : ''];
        };
        return [...told('undo', stepsDone), ...told('redo', stepsUndone)];
    },
};
})
