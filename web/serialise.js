// SPDX-License-Identifier: GPL-3.0-or-later
/**
 * Reads a document back as the text that the source box shows: old-style HTML with upper-case tags, values
 * without quotes where they can do without, lines ended by CR LF, and the generator's META as the last line of
 * the HEAD.
 *
 * The engine's own serialisation is exact, quick and regular: every value in double quotes, every element that
 * has an end closed, "<", ">", "&" and the no-break blank of texts written as entities. It is read once from
 * front to end and printed anew in the form above, so nothing here touches the living document.
 *
 * The file is one expression; its value is an object of `serialise`, of `holdBack`, through which a text goes before
 * it is written, and of what tells the blocks that a paste may bundle.
 */
(function () {
'use strict';

const words = list => new Set(list.split(' '));

const GENERATOR = 'Brindlemark surface';

/** Elements that have no end tag. */
const VOID = words('area base basefont bgsound br col embed frame hr img input keygen link meta param source track wbr');

/** Elements whose start tag begins a line. */
const BLOCK = words('address article aside blockquote body caption center col colgroup dd details dialog dir div dl dt ' +
    'fieldset figcaption figure footer form frame frameset h1 h2 h3 h4 h5 h6 head header hgroup hr legend li listing ' +
    'main menu nav noframes ol optgroup option p pre section summary table tbody td tfoot th thead tr ul xmp');

/** Elements whose text has neither entities nor tags. NOSCRIPT is one of them where scripts run. */
const RAW = words('script style xmp iframe noembed noframes');

/** Elements in which each line break shows; the parser drops a line feed behind the start tags of the first three. */
const EATS_LINE_FEED = words('pre listing textarea');
const PREFORMATTED = words('pre listing textarea xmp');

/** Start tags that end an open P, unless an element of the second set stands between. */
const ENDS_PARAGRAPH = words('address article aside blockquote center dd details dialog dir div dl dt fieldset ' +
    'figcaption figure footer form h1 h2 h3 h4 h5 h6 header hgroup hr li listing main menu nav ol p pre section ' +
    'summary ul xmp');
const SHIELDS_PARAGRAPH = words('applet button caption marquee math object svg table td template th');

/** Parents in which the parser takes a FORM's start tag but none of its content. */
const TABLE_PARTS = words('table tbody thead tfoot tr');

/** Elements in which HTML begins again: of drawings, and of formulas. */
const HOLDS_HTML = { svg: words('foreignObject desc title'), math: words('mi mo mn ms mtext') };

/** Attributes that are written without a value when it is empty. */
const FLAGS = words('checked compact declare defer disabled ismap multiple nohref noresize noshade nowrap readonly selected');

/** How often a text is printed anew; all that ever came to rest needed fewer rounds. */
const MOST_ROUNDS = 10;

/**
 * Reads a property through its prototype's getter: a page may hide the property itself behind a form, as
 * <INPUT name=firstChild> does, in every world.
 */
const reader = (type, property) => {
    const getter = Object.getOwnPropertyDescriptor(type.prototype, property).get;
    return node => getter.call(node);
};
const nodeType = reader(Node, 'nodeType');
const firstChild = reader(Node, 'firstChild');
const nextSibling = reader(Node, 'nextSibling');
const documentElement = reader(Document, 'documentElement');
const innerHtml = reader(Element, 'innerHTML');
const content = reader(HTMLTemplateElement, 'content');
const outerHtml = reader(Element, 'outerHTML');

/** The direct children of a node, as an array. */
function childrenOf(node) {
    const children = [];
    for (let child = firstChild(node); child; child = nextSibling(child))
        children.push(child);
    return children;
}

const isText = node => nodeType(node) === Node.TEXT_NODE;
const isComment = node => nodeType(node) === Node.COMMENT_NODE;

const ENTITIES = { '&': '&amp;', '<': '&lt;', '>': '&gt;', '\u00a0': '&nbsp;' };
const escapeText = text => text.replace(/[&<>\u00a0]/g, character => ENTITIES[character]);

/** The elements of a name below a document or a fragment, those in the content of templates too. */
function elementsNamed(name, parent) {
    const type = nodeType(parent) === Node.DOCUMENT_NODE ? Document : DocumentFragment;
    const all = selector => Array.from(type.prototype.querySelectorAll.call(parent, selector))
        .filter(element => element instanceof HTMLElement); // none of a drawing or formula
    const templates = all('template');
    return all(name).concat(...templates.map(template => elementsNamed(name, content(template))));
}

/** Nothing can end a PLAINTEXT, so it is written as PRE. The engine writes the text right in it without entities. */
function plaintextAsPre(element) {
    const inner = childrenOf(element).map(child =>
        isText(child) ? escapeText(child.data) : isComment(child) ? '<!--' + child.data + '-->' : outerHtml(child));
    const startTag = outerHtml(element).slice('<plaintext'.length, -innerHtml(element).length - '</plaintext>'.length);
    return '<pre' + startTag + inner.join('') + '</pre>';
}

/** The attribute of a DIV that the surface itself has put around pasted blocks. */
const HOLDER = 'brindlemark-paste';
const HOLDABLE = words('address blockquote center dir div dl h1 h2 h3 h4 h5 h6 hr menu ol p pre table ul');

const localName = reader(Element, 'localName');
const isBlock = node => node instanceof HTMLElement && HOLDABLE.has(localName(node));
const standsByItself = node => isBlock(node) || isComment(node) || (isText(node) && !/[^ \t\n\f\r]/.test(node.data));

/** The source without these tags. One of them in which editing has left more than blocks stays, as a mere DIV. */
function withoutHolders(inner, doc) {
    for (const element of elementsNamed('div[' + HOLDER + ']', doc)) { // outer ones first
        const bare = Element.prototype.getAttributeNames.call(element).length === 1 &&
            childrenOf(element).every(standsByItself);
        const outer = outerHtml(element);
        inner = inner.replace(outer, () => bare ? innerHtml(element) : outer.replace(' ' + HOLDER + '=""', ''));
    }
    return inner;
}

/** The engine's serialisation of all that belongs to a document but its doctype and the root's own tags. */
function sourceOf(doc) {
    const root = documentElement(doc);
    let inner = root ? innerHtml(root) : '';
    if (inner.includes('<plaintext')) {
        for (const element of elementsNamed('plaintext', doc))
            inner = inner.replace(outerHtml(element), () => plaintextAsPre(element));
    }
    if (inner.includes(HOLDER))
        inner = withoutHolders(inner, doc);
    return childrenOf(doc).map(node =>
        node === root ? inner : isComment(node) ? '<!--' + node.data + '-->' : '').join('');
}

/**
 * Where a script that begins at `start` ends. "<!-- <script" inside hides the next end tag; a script that was
 * never closed behind one took all the rest of the page, so its end tag is the last one.
 */
function endOfScript(source, start) {
    const mark = /<!--|-->|<(\/?)script(?=[ \t\n\f\r\/>])/gi;
    let hidden = 0; // 1: behind "<!--"; 2: behind "<!-- <script" as well
    mark.lastIndex = start;
    for (let found = mark.exec(source); found; found = mark.exec(source)) {
        if (found[0] === '<!--') {
            hidden = hidden || 1;
            mark.lastIndex -= 2; // "<!-->" opens and closes
        } else if (found[0] === '-->') {
            hidden = 0;
        } else if (found[1] === '') {
            hidden = hidden && 2;
        } else if (hidden < 2) {
            return { end: found.index, unclosed: false };
        } else {
            hidden = 1;
        }
    }
    return { end: source.lastIndexOf('</script>'), unclosed: true };
}

/** The text of a raw element whose start tag ends at `start`: where it ends, and the text to print. */
function readRaw(source, name, start) {
    let { end, unclosed } = name === 'script' ? endOfScript(source, start)
                                              : { end: source.indexOf('</' + name + '>', start), unclosed: false };
    if (end < start)
        end = source.length;
    return { end, text: source.slice(start, end) + (unclosed ? '-->' : '') };
}

const TAG_NAME = /[^ \t\n\f\r\/>]*/y;

/** A start tag: its name, its attributes as [name, value] with the value as the engine wrote it, and its end. */
function readStartTag(source, start) {
    TAG_NAME.lastIndex = start + 1;
    const tag = { name: TAG_NAME.exec(source)[0], attributes: [], end: TAG_NAME.lastIndex };
    while (source[tag.end] === ' ') {
        const equals = source.indexOf('="', tag.end + 2); // a name has one character at least, which may be "="
        const quote = source.indexOf('"', equals + 2);
        if (equals < 0 || quote < 0)
            break;
        tag.attributes.push([source.slice(tag.end + 1, equals), source.slice(equals + 2, quote)]);
        tag.end = quote + 1;
    }
    tag.end = source.indexOf('>', tag.end) + 1 || source.length;
    return tag;
}

/** The capitals of names that came before: a page has few names, many times each. */
const capitals = new Map();

/** ASCII letters only, as the parser folds them. */
function upperCase(name) {
    let upper = capitals.get(name);
    if (upper === undefined) {
        upper = name.replace(/[a-z]+/g, letters => letters.toUpperCase());
        capitals.set(name, upper);
    }
    return upper;
}

/**
 * Behind each "<META content=" of the text " name=GENERATOR>" is looked for. Where such letters are no tag, in a
 * comment or a script, a second blank keeps them from being taken for one.
 */
const notGenerator = text => text.replace(/<meta content=/gi, letters => letters.replace(' ', '  '));

/** The parser makes a line feed of a carriage return, unless it is written as a reference. */
const keepReturns = text => text.includes('\r') ? text.replace(/\r/g, '&#13;') : text;

function printValue(value) {
    if (/^[A-Za-z0-9#._-]+$/.test(value))
        return value;
    const text = value.replace(/&lt;/g, '<').replace(/&gt;/g, '>').replace(/<(?=meta content=)/gi, '&lt;');
    return '"' + keepReturns(text) + '"';
}

/** The "=" that begins a name would give a value to what stands before it without one. */
const isFlag = ([name, value], next) => value === '' && FLAGS.has(name) && !(next && next[0].startsWith('='));

const printAttribute = (attribute, index, all) =>
    ' ' + attribute[0] + (isFlag(attribute, all[index + 1]) ? '' : '=' + printValue(attribute[1]));

const isGenerator = tag => tag.name === 'meta' &&
    tag.attributes.some(([name, value]) => name === 'name' && value.toLowerCase() === 'generator');

/** The generator's META has its content first and name=GENERATOR last; no other META has its content first. */
function orderMeta(tag) {
    const content = tag.attributes.filter(([name]) => name === 'content');
    const others = tag.attributes.filter(([name]) => name !== 'content');
    if (isGenerator(tag))
        return [...content, ...others.filter(([name]) => name !== 'name'), ['name', 'GENERATOR']];
    if (content.length === 0 || tag.attributes[0][0] !== 'content')
        return tag.attributes;
    return [...(others.length > 0 ? others : [['name', '']]), ...content];
}

function printAttributes(tag) {
    const attributes = tag.name === 'meta' ? orderMeta(tag) : tag.attributes;
    return attributes.map(printAttribute).join('');
}

/** The markup language in which an element with this name is, HTML, "svg" or "math", below an open one. */
function languageOf(name, parent) {
    const above = parent === undefined || parent.holdsHtml ? 'html' : parent.language;
    if (above === 'html')
        return name === 'svg' || name === 'math' ? name : 'html';
    return parent.name === 'annotation-xml' && name === 'svg' && above === 'math' ? 'svg' : above;
}

const isHtmlEncoding = ([name, value]) =>
    name === 'encoding' && /^(text\/html|application\/xhtml\+xml)$/i.test(value);

/** Whether the content of a start tag in that language is HTML. */
function holdsHtml(tag, language) {
    return language === 'html' || HOLDS_HTML[language].has(tag.name) ||
        (language === 'math' && tag.name === 'annotation-xml' && tag.attributes.some(isHtmlEncoding));
}

const showsLineBreaks = tag => PREFORMATTED.has(tag.name) ||
    tag.attributes.some(([name, value]) => name === 'style' && /white-space\s*:\s*(pre|break)/i.test(value));

/**
 * @typedef {object} OpenElement an element whose end tag is still to come
 * @property {string} name as the engine wrote it
 * @property {string} shown the name in the printed tags
 * @property {number} length of the printed pieces behind its start tag, which is the last of them
 * @property {string} language "html", or "svg" or "math" for a part of a drawing or formula
 * @property {boolean} holdsHtml whether HTML's own rules hold in it
 * @property {boolean} pre whether each line break in it shows
 * @property {OpenElement} [table] of a FORM between table parts: the table behind which it ends
 */

/** Prints the engine's serialisation anew, in one pass. */
class Printer {
    /** @param {boolean} scripting whether the document's scripts run, so that NOSCRIPT holds raw text */
    constructor(scripting) {
        this.scripting = scripting;
        this.out = [];
        this.lineBegun = true; // nothing but blanks since the last line feed
        this.open = [];        // the elements whose end is still to come
        this.paragraphs = 0;   // how many of them are a P
        this.form = null;      // the FORM that the parser would hold open here
        this.hasGenerator = false;
        this.bodyEnded = false;
    }

    put(text) {
        this.out.push(text);
        let last = text.length - 1;
        while (last >= 0 && (text[last] === ' ' || text[last] === '\t'))
            --last;
        if (last >= 0)
            this.lineBegun = text[last] === '\n';
    }

    beginLine() {
        if (!this.lineBegun)
            this.put('\n');
    }

    get parent() {
        return this.open[this.open.length - 1];
    }

    print(source) {
        for (let at = 0; at < source.length;) {
            if (source[at] !== '<')
                at = this.text(source, at);
            else if (source[at + 1] === '/')
                at = this.endTag(source, at);
            else if (source.startsWith('<!--', at))
                at = this.comment(source, at);
            else
                at = this.startTag(source, at);
        }
        return this.out.join('').replace(/\n/g, '\r\n');
    }

    /** Between the parts of the root element blanks say nothing; behind the BODY they would move into it. */
    text(source, start) {
        const next = source.indexOf('<', start);
        const end = next < 0 ? source.length : next;
        const text = source.slice(start, end);
        if (this.open.length > 0 || /[^ \t\n\f\r]/.test(text))
            this.put(keepReturns(text));
        return end;
    }

    comment(source, start) {
        if (this.open.length === 0 && !this.bodyEnded)
            this.beginLine();
        const close = source.indexOf('-->', start + 4);
        const end = close < 0 ? source.length : close + 3;
        this.put(notGenerator(source.slice(start, end)));
        return end;
    }

    startTag(source, start) {
        const tag = readStartTag(source, start);
        const { name } = tag;
        const parent = this.parent;
        const inHead = parent !== undefined && parent.name === 'head';

        if (this.paragraphs > 0 && ENDS_PARAGRAPH.has(name))
            this.renameParagraphs();
        const language = languageOf(name, parent);
        const drawing = language !== 'html';
        if (!drawing && (inHead || BLOCK.has(name)) && !(parent && parent.pre))
            this.beginLine();
        if (name === 'form' && this.form) { // the parser would pass over a FORM in a FORM
            this.put('</FORM>');            // behind the line break, which else would come anew each time
            this.form = null;
        }
        if (inHead && isGenerator(tag))
            this.hasGenerator = true;

        const shown = upperCase(name);
        const startTag = '<' + shown + printAttributes(tag) + '>';
        this.put(name.endsWith('<meta') ? notGenerator(startTag) : startTag);
        if (VOID.has(name) && !drawing)
            return tag.end;

        const element = { name, shown, language, holdsHtml: holdsHtml(tag, language), length: this.out.length,
                          pre: (parent !== undefined && parent.pre) || showsLineBreaks(tag) };
        this.open.push(element);
        if (name === 'p')
            ++this.paragraphs;
        if (name === 'form')
            this.form = element;
        if (drawing)
            return tag.end;
        if (EATS_LINE_FEED.has(name) && source[tag.end] === '\n')
            this.put('\n');
        if (!RAW.has(name) && !(name === 'noscript' && this.scripting))
            return tag.end;
        const raw = readRaw(source, name, tag.end);
        this.put(notGenerator(raw.text));
        return raw.end;
    }

    /** Editing and misnested tables leave blocks in a P. No text can say that, but a DIV may hold them. */
    renameParagraphs() {
        for (let i = this.open.length - 1; i >= 0 && !SHIELDS_PARAGRAPH.has(this.open[i].name); --i) {
            const element = this.open[i];
            if (element.shown === 'P') {
                element.shown = 'DIV';
                this.out[element.length - 1] = '<DIV' + this.out[element.length - 1].slice('<P'.length);
                --this.paragraphs;
            }
        }
    }

    endTag(source, start) {
        const end = source.indexOf('>', start) + 1 || source.length;
        const element = this.open.pop();
        if (element === undefined)
            return end;
        if (element.shown === 'P')
            --this.paragraphs;
        if (element.name === 'form')
            this.endForm(element);
        else
            this.endElement(element);
        return end;
    }

    endElement(element) {
        const outermost = this.open.length === 0;
        if (element.name === 'head' && outermost && !this.hasGenerator) {
            this.beginLine();
            this.put('<META content="' + GENERATOR + '" name=GENERATOR>');
        }
        this.put('</' + element.shown + '>');
        if (outermost && (element.name === 'body' || element.name === 'frameset'))
            this.bodyEnded = true;
        if (this.form && this.form.table === element) {
            this.put('</FORM>');
            this.form = null;
        }
    }

    /** A FORM between table parts is empty in the tree, yet owns the table's fields: it ends behind the table. */
    endForm(element) {
        if (this.form !== element) // ended already, before a FORM inside
            return;
        if (this.out.length === element.length && this.parent && TABLE_PARTS.has(this.parent.name)) {
            element.table = this.open.filter(({ name }) => name === 'table').pop();
            if (element.table)
                return;
        }
        this.put('</FORM>');
        this.form = null;
    }
}

/**
 * Attributes that are written into a page under another name, each with the tags that it is held in. A TEMPLATE with one
 * of the first becomes a shadow root: its text is in no child and comes back from nowhere. A LINK whose relation names
 * `preconnect`, maybe by entities, has newer engines open a connection that no guard of requests sees.
 */
const HELD = [
    { tags: /<template(?=[ \t\n\f\r\/])/gi, name: /^shadowroot(?:mode)?$/i, attribute: /^/ },
    { tags: /<link(?=[ \t\n\f\r\/])/gi, name: /^rel$/i, attribute: /preconnect|&/i },
];
const HELD_NAME = /((?:shadowroot(?:mode)?|rel)\u2063*)\u2063/gi;

/** One attribute as the parser reads it, its name in the group. */
const ATTRIBUTE = /[ \t\n\f\r\/]*(=?[^ \t\n\f\r\/>=]+|=)(?:[ \t\n\f\r]*=[ \t\n\f\r]*(?:"[^"]*"|'[^']*'|[^"' \t\n\f\r>][^ \t\n\f\r>]*)?)?/y;

/**
 * The text with an invisible letter behind these names in all those tags, and in what only looks like one, and with one
 * more where there is one already; `serialise` takes one away.
 */
function holdBack(text) {
    if (!/shadowroot|<link|rel\u2063/i.test(text))
        return text;
    const ends = new Set(Array.from(text.matchAll(HELD_NAME), held => held.index + held[0].length)); // of the names
    for (const { tags, name, attribute } of HELD) {
        const visited = new Set(); // where a tag inside what looks like a tag has been read on already
        for (const { index, 0: tag } of text.matchAll(tags)) {
            ATTRIBUTE.lastIndex = index + tag.length;
            for (let from = ATTRIBUTE.lastIndex; !visited.has(from); from = ATTRIBUTE.lastIndex) {
                visited.add(from);
                const found = ATTRIBUTE.exec(text);
                if (!found)
                    break;
                if (name.test(found[1]) && attribute.test(found[0]))
                    ends.add(from + found[0].indexOf(found[1]) + found[1].length);
            }
        }
    }
    let held = '';
    let done = 0;
    for (const end of [...ends].sort((a, b) => a - b)) {
        held += text.slice(done, end) + '\u2063';
        done = end;
    }
    return held + text.slice(done);
}

/**
 * The inner HTML of the root element of `doc`, with the comments around it.
 *
 * Not every tree can be written so that the text reads back as that tree. So the text is parsed and printed again
 * until it stands still: what is returned reads back and prints as itself.
 *
 * @param {Document} doc
 * @param {boolean} scripting whether scripts run in `doc`
 * @returns {string}
 */
function serialise(doc, scripting) {
    let source = sourceOf(doc);
    scripting = scripting && source.includes('<noscript'); // nothing else is read in another way
    let text = new Printer(scripting).print(source);
    for (let round = 0; round < MOST_ROUNDS; ++round) {
        const again = sourceOf(new DOMParser().parseFromString(text, 'text/html'));
        if (again === source && !scripting)
            break;
        source = again;
        scripting = false;
        const next = new Printer(scripting).print(source);
        if (next === text)
            break;
        text = next;
    }
    return text.replace(HELD_NAME, '$1');
}

return { serialise, holdBack, HOLDER, isBlock, standsByItself };
})()
