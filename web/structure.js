// SPDX-License-Identifier: GPL-3.0-or-later
/**
 * What is left of HTML whose looks are litter: its paragraphs, headings, lists, tables, links and pictures, and what is
 * bold, italic, underlined, struck out, raised or lowered. All else that programs for letters, tables and mail, and browsers,
 * write about fonts, colours and sizes goes: 28 letters come with 700 of it.
 *
 * The file is one expression; its value is an object of functions. They are given HTML that has been cleaned, and add
 * nothing to it but the elements named here.
 */
(function () {
'use strict';

const words = list => list.split(' ');

/** How programs can be told whose looks are litter: by what they write about themselves, or browsers of computed styles. */
const PROGRAMS = new RegExp([
    'mso-|schemas-microsoft-com:office|<o:p', // office programs
    '<meta[^>]+generator[^>]+office',
    'docs-internal-guid',
    'id="(?:x_|ydp|yui_)', // web mail
    'data-(?:slate|tid|ogs[bc]|olk|stringify)', // chats
    'style="[^"]*(?:-webkit-text-stroke-width|orphans|widows):', // what browsers have computed
].join('|'), 'i');

/** How their classes begin, in these very letters: others call theirs "apple-red" or "box_left". */
const CLASSES = /(?:class|CLASS)=(?:"?Mso|"(?:[^"]*\s)?(?:gmail_|elementToProof|x_|ydp|yiv|yui_|Apple-))/;

/** How one browser begins what it copies. The style sheets of the page don't come along, so that classes do nothing. */
const BROWSERS = /^\s*<meta http-equiv="?content-type/i;

const BLOCKS = new Set(words('address article aside blockquote center dd details dir div dl dt fieldset figcaption figure ' +
    'footer form header hgroup main menu nav p pre section summary'));
const HEADINGS = new Set(words('h1 h2 h3 h4 h5 h6'));
const LISTS = new Set(words('ul ol'));
const TABLE_PARTS = new Set(words('table caption thead tbody tfoot tr td th'));
const HOLDERS = new Set(words('td th caption li')); // what a paragraph of its own can stand in
const DROPPED = new Set(words('button colgroup col datalist input label object option select textarea'));

/** Which attributes of which element are structure. */
const KEPT = { a: ['href', 'target'], img: ['src', 'alt', 'width', 'height'], ol: ['start', 'type'], td: ['colspan', 'rowspan'],
    th: ['colspan', 'rowspan'] };

/** Attributes that say nothing with a "1". */
const SPANS = new Set(words('colspan rowspan start'));

/** The looks that count, in the order in which their elements enclose one another. */
const FORMATS = words('b i u s sub sup');
const FORMAT_OF = { b: 'b', strong: 'b', i: 'i', em: 'i', cite: 'i', dfn: 'i', u: 'u', ins: 'u', s: 's', strike: 's', del: 's', sub: 'sub',
    sup: 'sup' };

/** Reads a property through its prototype: the fields of a form have names that hide it. */
function reader(type, name) {
    const getter = Object.getOwnPropertyDescriptor(type.prototype, name).get;
    return node => getter.call(node);
}
const nameOf = reader(Element, 'localName');
const styleOf = reader(HTMLElement, 'style');
const childrenOf = reader(Node, 'childNodes');
const has = (element, name) => Element.prototype.hasAttribute.call(element, name);
const attribute = (element, name) => Element.prototype.getAttribute.call(element, name) || '';

/** Puts what an element holds in its place; one by one, as a call takes no hundred thousand arguments. */
function unwrap(element) {
    while (element.firstChild)
        element.before(element.firstChild);
    element.remove();
}

/** Whether nobody sees an element: it says so, or measures who reads. */
function isHidden(element) {
    const style = styleOf(element);
    const isPoint = nameOf(element) === 'img' && (/^[01](?:px)?$/.test(attribute(element, 'width')) || /^[01]px$/.test(style.width));
    const isPageBreak = nameOf(element) === 'br' && /page-break-before: *always/i.test(attribute(element, 'style'));
    return isPoint || isPageBreak || style.display === 'none' || style.visibility === 'hidden' || has(element, 'hidden') ||
        /mso-hide: *all|mso-list: *ignore/i.test(attribute(element, 'style')) ||
        /(?:^| )Apple-interchange-newline/.test(attribute(element, 'class'));
}

/** The formats within an element, in which `around` are. */
function formatsWithin(element, around) {
    const formats = new Set(around);
    const set = (format, on) => { on ? formats.add(format) : formats.delete(format); };
    const own = FORMAT_OF[nameOf(element)];
    if (own)
        formats.add(own);
    if (HEADINGS.has(nameOf(element)) || nameOf(element) === 'th')
        formats.delete('b'); // they are bold as they are
    const style = styleOf(element);
    const weight = style.fontWeight;
    const isBoldItself = HEADINGS.has(nameOf(element)) || nameOf(element) === 'th';
    if (weight !== '' && weight !== 'inherit' && !isBoldItself)
        set('b', weight === 'bold' || weight === 'bolder' || Number(weight) >= 600);
    if (style.fontStyle !== '' && style.fontStyle !== 'inherit')
        set('i', /italic|oblique/.test(style.fontStyle));
    const line = style.textDecorationLine || style.textDecoration;
    if (line.includes('underline') && nameOf(element) !== 'a')
        formats.add('u');
    if (line.includes('line-through'))
        formats.add('s');
    if (line.startsWith('none')) {
        formats.delete('u');
        formats.delete('s');
    }
    if (style.verticalAlign === 'sub' || style.verticalAlign === 'super')
        formats.add(style.verticalAlign === 'sub' ? 'sub' : 'sup');
    return formats;
}

/** The level, from 1, and the mark of a paragraph that stands for an entry of a list; null for others. */
function listEntry(element) {
    const list = /mso-list: *\S+ +level(\d+)/i.exec(attribute(element, 'style'));
    if (nameOf(element) !== 'p' || !list)
        return null;
    const mark = Array.from(element.querySelectorAll('*')).find(inner => /mso-list: *ignore/i.test(attribute(inner, 'style')));
    return { level: Number(list[1]), type: mark && /^\s*\(?[0-9a-z]{1,4}[.)]/i.test(mark.textContent) ? 'ol' : 'ul' };
}

/** Makes the structure. Text goes into lines, which are paragraphs, headings or the insides of entries and cells. */
class Structure {
    constructor(maker) {
        this.maker = maker;
        this.places = [maker.createElement('body')];
        this.line = null;
        this.lineName = 'p';
        this.run = null;
        this.takesBlank = false; // whether a blank would be seen where the next text comes
        this.keepsLines = false; // within PRE
        this.lists = []; // of paragraphs that stand for entries, the outer one first
    }

    get place() { return this.places[this.places.length - 1]; }

    /** Its letters come into the page at once: to append them one by one takes a time with the square of their number. */
    endRun() {
        if (this.run && this.run.text)
            this.run.text.data = this.run.letters;
        this.run = null;
    }

    endLine() {
        this.endRun();
        const line = this.line;
        this.line = null;
        if (!line)
            return;
        const isBreak = node => node instanceof Element && nameOf(node) === 'br';
        while (line.lastChild && isBreak(line.lastChild))
            line.lastChild.remove();
        let last = line;
        while (last.lastChild)
            last = last.lastChild;
        if (last instanceof Text)
            last.data = last.data.replace(/ $/, '');
        if (line.textContent.trim() === '' && !line.querySelector('img'))
            line.remove();
    }

    beginLine(line) {
        this.endRun();
        this.line = line;
        this.takesBlank = false;
    }

    lineForText() {
        if (!this.line) {
            this.lists = []; // what stands between two entries parts their lists
            this.beginLine(this.maker.createElement(this.lineName));
            this.place.append(this.line);
        }
        return this.line;
    }

    /** Text or a picture, in its formats and its link. */
    add(content, formats, link) {
        const line = this.lineForText();
        const names = FORMATS.filter(format => formats.has(format) && !(link && format === 'u')); // links are underlined
        const key = names.join(' ') + '|' + (link ? attribute(link, 'href') : '');
        if (!this.run || this.run.key !== key) {
            this.endRun();
            let host = line;
            for (const element of [...(link ? [this.copy(link)] : []), ...names.map(name => this.maker.createElement(name))]) {
                host.append(element);
                host = element;
            }
            this.run = { key, host, text: null, letters: '' };
        }
        const run = this.run;
        if (content instanceof Element) {
            run.host.append(content);
            this.endRun();
        } else {
            if (!run.text)
                run.host.append(run.text = this.maker.createTextNode(''));
            run.letters += content;
        }
        this.takesBlank = !(typeof content === 'string' && content.endsWith(' '));
    }

    addText(text, formats, link) {
        const lines = this.keepsLines ? text.split('\n') : [text];
        lines.forEach((line, i) => {
            if (i > 0)
                this.addBreak();
            let collapsed = line.replace(/\ufeff/g, '').replace(/[ \t\r\n\f]+/g, ' ');
            if (!this.line || !this.takesBlank)
                collapsed = collapsed.replace(/^ /, '');
            if (collapsed !== '')
                this.add(collapsed, formats, link);
        });
    }

    addBreak() {
        if (!this.line)
            return; // a blank line between paragraphs
        this.line.append(this.maker.createElement('br'));
        this.beginLine(this.line);
    }

    copy(element) {
        const copy = this.maker.createElement(nameOf(element));
        for (const name of KEPT[nameOf(element)] || []) {
            if (has(element, name) && !(SPANS.has(name) && attribute(element, name) === '1'))
                copy.setAttribute(name, attribute(element, name));
        }
        return copy;
    }

    /** What stands in an element of its own kind: a list, an entry, a part of a table. */
    enclose(element, inside) {
        this.endLine();
        this.lists = [];
        const copy = this.copy(element);
        // A list that stands beside the entries belongs to the one before it.
        const host = LISTS.has(nameOf(element)) && LISTS.has(nameOf(this.place)) && this.place.lastElementChild || this.place;
        host.append(copy);
        this.places.push(copy);
        inside();
        this.endLine();
        this.lists = [];
        this.places.pop();
        if (HOLDERS.has(nameOf(copy))) {
            const lines = Array.from(copy.children).filter(child => nameOf(child) === 'p');
            if (lines.length === 1 && copy.firstElementChild === lines[0])
                unwrap(lines[0]);
        }
        if (nameOf(copy) === 'li' && copy.childNodes.length === 0 || LISTS.has(nameOf(copy)) && !copy.querySelector('li'))
            copy.remove();
    }

    /** A paragraph that stands for an entry of a list. */
    addEntry(entry, inside) {
        this.endLine();
        this.lists = this.lists.filter(list => list.level < entry.level || (list.level === entry.level && list.type === entry.type));
        let list = this.lists[this.lists.length - 1];
        if (!list || list.level < entry.level) {
            const host = list ? list.element.lastElementChild : this.place;
            list = { level: entry.level, type: entry.type, element: this.maker.createElement(entry.type) };
            host.append(list.element);
            this.lists.push(list);
        }
        const item = this.maker.createElement('li');
        list.element.append(item);
        this.beginLine(item);
        inside();
        this.endLine();
        if (!list.element.firstChild) { // the entry was empty
            list.element.remove();
            this.lists = this.lists.filter(other => other !== list);
        }
    }

    walk(nodes, formats, link) {
        for (const node of nodes) {
            if (node instanceof Text) {
                if (!/^(?:table|thead|tbody|tfoot|tr|ul|ol)$/.test(nameOf(this.place)) || node.data.trim() !== '')
                    this.addText(node.data, formats, link);
            } else if (node instanceof Element && !isHidden(node)) {
                this.walkElement(node, formats, link);
            }
        }
    }

    walkElement(element, around, link) {
        const name = nameOf(element);
        const formats = formatsWithin(element, around);
        const inside = () => this.walk(childrenOf(element), formats, link);
        const entry = listEntry(element);
        if (DROPPED.has(name))
            return;
        if (entry) {
            this.addEntry(entry, inside);
        } else if (name === 'br') {
            this.addBreak();
        } else if (name === 'hr') {
            this.endLine();
            this.lists = [];
            this.place.append(this.maker.createElement('hr'));
        } else if (name === 'img') {
            this.addPicture(element, formats, link);
        } else if (name === 'a' && has(element, 'href')) {
            this.walk(childrenOf(element), formats, element);
        } else if (LISTS.has(name) || name === 'li' || TABLE_PARTS.has(name)) {
            this.enclose(element, inside);
        } else if (BLOCKS.has(name) || HEADINGS.has(name)) {
            this.endLine();
            this.lists = [];
            const { lineName, keepsLines } = this;
            this.lineName = HEADINGS.has(name) ? name : 'p';
            this.keepsLines = keepsLines || name === 'pre';
            inside();
            this.endLine();
            Object.assign(this, { lineName, keepsLines });
        } else {
            inside();
        }
    }

    /** Pictures that stand for a character come as that. */
    addPicture(element, formats, link) {
        const alt = attribute(element, 'alt');
        if (/^\p{Extended_Pictographic}/u.test(alt) && alt.length <= 12) {
            this.addText(alt, formats, link);
        } else if (/^(?:https?:|file:)/i.test(attribute(element, 'src'))) {
            this.add(this.copy(element), formats, link);
        }
    }
}

return {
    /** Whether the looks of this HTML, as it comes, are litter. */
    isLitter: html => PROGRAMS.test(html) || CLASSES.test(html),

    /** Takes the names from a body by which a page is known to its own style sheets and scripts; nobody sees them. */
    dropNames(html, body) {
        if (!BROWSERS.test(html))
            return body;
        for (const element of body.querySelectorAll('*')) {
            const names = Element.prototype.getAttributeNames.call(element).filter(name => /^(?:class|data-.*|aria-.*)$/.test(name));
            names.forEach(name => Element.prototype.removeAttribute.call(element, name));
            if (names.length > 0 && nameOf(element) === 'span' && element.attributes.length === 0)
                unwrap(element);
        }
        return body;
    },

    /** The structure of a body, as a body; of words without a paragraph of their own as they are. */
    structureOf(body) {
        const structure = new Structure(body.ownerDocument);
        structure.walk(body.childNodes, new Set(), null);
        structure.endLine();
        const made = structure.place;
        const hasBlock = Array.from(body.querySelectorAll('*')).some(element => BLOCKS.has(nameOf(element)));
        const only = made.children.length === 1 ? made.firstElementChild : null;
        if (only && nameOf(only) === 'p' && !hasBlock)
            unwrap(only);
        return made;
    },
};
})()
