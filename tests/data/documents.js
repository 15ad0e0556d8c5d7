// SPDX-License-Identifier: GPL-3.0-or-later
/**
 * Makes documents as people and their programs write them and checks what the serialiser does with them.
 * One expression; its value takes the functions of serialise.js and returns the checks. It runs in a page that has the
 * functions of surface.js.
 */
(function (functions) {
'use strict';

const { serialise } = functions;

const parse = text => new DOMParser().parseFromString(text, 'text/html');
const print = doc => serialise(doc, false);
const surface = globalThis[Symbol.for('surface')];

/** What comes back of a text that is written into the page. */
function visit(text) {
    surface.write(text, true);
    return surface.innerHtml(false);
}

/** A repeatable row of numbers: next(n) is 0 to n - 1. */
function numbers(seed) {
    let state = seed >>> 0;
    return limit => {
        state = (Math.imul(state, 1103515245) + 12345) >>> 0;
        return Math.floor((state >>> 8) / 0x1000000 * limit);
    };
}

const TEXTS = ['A fine old lamp', ' in  good\norder ', '&nbsp;', '&amp;', '5 &lt; 6', 'caf\u00e9', '\u20ac 12', '\n', '\r\n\r\n',
    ' ', 'a &copy; b', '"quoted"', "it's", '\u00a0\u00a0x', '1 > 0', '\t', '&#13;', 'AT&T', '&unknown;'];
const COMMENTS = ['<!-- Body-title -->', '<!-- Body-title2 -->', '<!-- body-buildwizard2 -->', '<!-- two\n lines -->',
    '<!---->', '<!-- a -- b -->', '<!-- <b>not bold</b> -->', '<!-- &amp; "x" -->', '<!--x-->'];
const INLINE = ['b', 'i', 'u', 'font', 'a', 'span', 'nobr', 'big', 'align=middle', 'marquee'];
const ATTRIBUTES = [' align=center', ' COLOR="#FF0000"', " title='say \"hi\"'", ' width=90%', ' nowrap', ' alt=""',
    ' name=a_b-c.d', ' style="color: red"', ' href="?a=1&amp;b=2"', ' title="a&nbsp;b"', ' title="two\nlines"'];

/** Ordinary markup: what is in it stands where it may stand, though not all is closed. */
function ordinary(next) {
    const pick = list => list[next(list.length)];
    const attributes = () => next(3) ? '' : pick(ATTRIBUTES);
    const text = () => next(4) ? pick(TEXTS) : pick(COMMENTS);
    const inline = depth => {
        if (depth === 0 || next(2))
            return text();
        const tag = pick(INLINE);
        if (next(6) === 0)
            return '<br' + attributes() + '>' + text();
        if (tag === 'a' || tag === 'nobr') // neither may stand in its like
            return '<' + tag + attributes() + '>' + text() + '</' + tag + '>';
        return '<' + tag + attributes() + '>' + inline(depth - 1) + inline(depth - 1) + '</' + tag.split('=')[0] +
            (tag.includes('=') ? '=middle' : '') + '>';
    };
    const several = (make, most) => Array.from({ length: 1 + next(most) }, make).join('');
    const cell = depth => pick(['<td', '<TD', '<th']) + attributes() + '>' + several(() => block(depth - 1), 3) +
        (next(2) ? '</td>' : '');
    const row = depth => (next(3) ? '' : pick(COMMENTS)) + '<tr' + attributes() + '>' + (next(3) ? '' : pick(COMMENTS)) +
        several(() => cell(depth), 3) + (next(2) ? '</tr>\n' : '');
    const block = depth => {
        if (depth <= 0)
            return inline(2);
        switch (next(12)) {
        case 0: return '<p' + attributes() + '>' + inline(2) + (next(2) ? '</p>' : '\n');
        case 1: return '<center>' + several(() => block(depth - 1), 3) + '</center>';
        case 2: return '<table border=1' + attributes() + '>\n' + several(() => row(depth), 3) + '</table>';
        case 3: return '<ul>' + several(() => '<li>' + inline(2) + (next(2) ? '</li>' : '\n'), 4) + '</ul>';
        case 4: return '<pre' + attributes() + '>' + pick(['', '\n', '\n\n']) + 'a  b\n   c' + pick(['', '\n']) + '</pre>';
        case 5: return '<script>' + pick(['if (a < b && c) f("</b>");', '<!--\nx();\n//-->', '\n\ny', '']) + '</script>';
        case 6: return '<style>' + pick(['p > b { color: red }', '<!-- td {} -->\n']) + '</style>';
        case 7: return '<form action="a?b&c">' + inline(1) + '<textarea rows=2>' + pick(['\n\nx &amp; y', '&lt;b>', '']) +
            '</textarea><input type=checkbox checked><select><option selected>1<option>2</select></form>';
        case 8: return '<blockquote>' + several(() => block(depth - 1), 2) + '</blockquote>';
        case 9: return '<hr' + attributes() + ' noshade>';
        case 10: return '<dl><dt>' + inline(1) + '<dd>' + inline(1) + '</dl>';
        default: return inline(3);
        }
    };
    const head = next(2) ? '<html>\n<head>\n<title>T &amp; t</title>\n' +
        pick(['', '<meta name="GENERATOR" content="Some editor 3">\n', '<meta content="a, b" name=keywords>\n',
              '<META HTTP-EQUIV="Content-Type" CONTENT="text/html; charset=windows-1252">\n', '<!-- in the head -->']) +
        '</head>\n<body bgcolor=#ffffff text="black">\n' : '';
    return (next(4) ? '' : '<!-- in front -->\n') + head + several(() => block(3), 6) +
        (next(3) ? '' : '\n</body>\n</html>\n<!-- behind -->\n');
}

const WILD_TAGS = ('p P div b i u a font center ul ol li table tr td th tbody thead tfoot caption col colgroup form input ' +
    'select option optgroup textarea pre h1 h2 span br hr img script style title meta link body html head blockquote dl ' +
    'dt dd marquee nobr button label map area object param iframe noscript noframes noembed svg math template frameset ' +
    'frame xmp listing plaintext address dir menu o:p applet ruby rt image isindex foreignObject details fieldset ' +
    'mi mtext desc annotation-xml slot center<meta b"c dialog summary').split(' ');
const WILD_TEXTS = TEXTS.concat(['<', '< >', '</>', '<!', '-->', ']]>', '&#0;', '\u0000', '<!-- never closed', '<?php echo 1 ?>',
    '<!ROW 1>', '<![CDATA[x]]>', '</ bogus>', '<!-->', '<!-- x --!>', '<!--- y --->', '<!-- <script> ', '<meta content=x>',
    '<table><form><tr><td>', '<form><div></form><form>', '<script><!-- <script> </script>', '"', '=', '\ud800', '<template shadowroot=open>', '<template shadowrootmode=closed x>',
    '<div><template a=">" SHADOWROOT=open>', '<textarea>\n\n', '<svg><mi>', '<math><mi>', '<center<meta content=x>',
    '<annotation-xml encoding=TEXT/html>', '<sub disabled="" =eq=1>', '<a title="<template ', '<template shadowroot\u2063=x>']);
const WILD_ATTRIBUTES = ATTRIBUTES.concat([' =odd', ' "odd"', ' a<b=1', ' type=hidden', ' name=Generator', ' content=x',
    ' content="<META content="', ' style="white-space: pre"', ' xlink:href=x', ' x="&#13;"', ' /', ' disabled',
    ' checked=""', ' a<meta=1', ' shadowroot=open', ' shadowrootmode="closed"', ' encoding=text/html', ' x=\'"\'', ' ="', ' x=a"b']);

/** Tags of all kinds in no order at all. */
function wild(next) {
    const pick = list => list[next(list.length)];
    let text = '';
    for (let i = 5 + next(40); i > 0; --i) {
        const kind = next(10);
        if (kind < 5)
            text += '<' + pick(WILD_TAGS) + (next(2) ? pick(WILD_ATTRIBUTES) : '') + (next(4) ? pick(WILD_ATTRIBUTES) : '') + '>';
        else if (kind < 7)
            text += '</' + pick(WILD_TAGS) + '>';
        else
            text += next(4) ? pick(WILD_TEXTS) : pick(COMMENTS);
    }
    return text;
}

/** The texts and comments of a document in their order; blanks alone and the line breaks around tags don't count. */
function contents(doc) {
    const list = [];
    const walker = doc.createTreeWalker(doc, NodeFilter.SHOW_TEXT | NodeFilter.SHOW_COMMENT);
    for (let node = walker.nextNode(); node; node = walker.nextNode()) {
        if (node.nodeType === Node.COMMENT_NODE)
            list.push('<!--' + node.data + '-->');
        else if (/[^ \t\n\f\r]/.test(node.data))
            list.push(node.data.replace(/\n$/, ''));
    }
    return list;
}

/** Each comment with the name of what stands before it and above it. */
function commentPlaces(doc) {
    const list = [];
    const walker = doc.createTreeWalker(doc, NodeFilter.SHOW_COMMENT);
    for (let node = walker.nextNode(); node; node = walker.nextNode()) {
        const inBody = doc.body && doc.body.contains(node);
        const before = node.previousElementSibling;
        list.push((inBody ? node.parentNode.nodeName + '/' + (before ? before.nodeName : '') : '') + node.data);
    }
    return list;
}

const lettersOf = (doc, selector) => Array.from(doc.querySelectorAll(selector), element => element.textContent);
const same = (a, b) => JSON.stringify(a) === JSON.stringify(b);

/** All elements of a document, those in the content of templates too, in their order. */
function elementsOf(parent) {
    return Array.from(parent.querySelectorAll('*')).flatMap(element =>
        [element, ...(element instanceof HTMLTemplateElement ? elementsOf(element.content) : [])]);
}

/** The letters of a document without blanks, those of the content of templates too. */
function letters(parent) {
    const neverClosed = parent instanceof HTMLScriptElement ? /-->$/ : ''; // what ends it then is written behind it
    let text = '';
    for (let child = parent.firstChild; child; child = child.nextSibling) {
        text += child instanceof Text ? child.data.replace(/\s/g, '').replace(neverClosed, '')
              : letters(child instanceof HTMLTemplateElement ? child.content : child);
    }
    return text;
}

/** How often each attribute with its value is below the root of a document. Those of the generator are not counted. */
function attributesOf(doc) {
    const counts = new Map();
    for (const element of elementsOf(doc)) {
        const attributes = Array.from(element.attributes);
        if (element === doc.documentElement || element.localName === 'meta' && attributes.some(({ name, value }) => name === 'name' && /^generator$/i.test(value)))
            continue;
        for (const { name, value } of attributes)
            counts.set(name + '=' + value, (counts.get(name + '=' + value) || 0) + 1);
    }
    return counts;
}

/** The names of the properties that don't hold for a text. */
function broken(text, alsoContents) {
    const before = parse(text);
    const printed = print(before);
    const after = parse(printed);
    const names = [];
    const check = (name, holds) => holds || names.push(name);

    const shown = visit(text);
    const plain = parse(shown);
    const attributes = attributesOf(plain);
    check('a second visit changes nothing', visit(shown) === shown);
    check('all letters are there', letters(plain) === letters(before));
    for (const [attribute, count] of attributesOf(before)) {
        if (!(attributes.get(attribute) >= count))
            check('attribute ' + attribute, false);
    }
    check('no META is torn', !/<META content=(?![^]* name=GENERATOR>)/i.test(shown));

    check('still after the first pass', print(after) === printed);
    check('no META but the generator begins with its content',
        !Array.from(printed.matchAll(/<META content=/gi)).some(({ index }) => !printed.includes(' name=GENERATOR>', index)));
    check('lines end CR LF', !/[^\r]\n|\r[^\n]/.test(printed));
    if (alsoContents) {
        check('comments and texts survive in their order', same(contents(before), contents(after)));
        check('comments survive in their places', same(commentPlaces(before), commentPlaces(after)));
        for (const name of ['pre', 'textarea', 'script', 'style'])
            check(name + ' to the letter', same(lettersOf(before, name), lettersOf(after, name)));
        check('the head tells the generator once', printed.split('</HEAD>')[0].split(' name=GENERATOR>').length === 2);
    }
    return names;
}

/** Checks `count` documents and tells of the shortest that fails, or ''. */
function run(make, count, seed, alsoContents) {
    const next = numbers(seed);
    let worst = null;
    for (let i = 0; i < count; ++i) {
        const text = make(next);
        const names = broken(text, alsoContents);
        if (names.length > 0 && (!worst || text.length < worst.text.length))
            worst = { names, text };
    }
    return worst ? JSON.stringify({ ...worst, printed: visit(worst.text) }) : '';
}

return {
    broken: text => broken(text, true).join(', '),
    ordinary: (count, seed) => run(ordinary, count, seed, true),
    wild: (count, seed) => run(wild, count, seed, false),
};
})
