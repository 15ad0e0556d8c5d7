// SPDX-License-Identifier: GPL-3.0-or-later
/**
 * Cleans HTML that comes from elsewhere: nothing of it runs, loads a document or turns into something else when it is
 * read again. What old pages and the program's own look like comes through letter by letter. Of what programs write whose
 * looks are litter only the structure is left (structure.js), unless the looks are asked for.
 *
 * The file is one expression; its value is the function from a fragment to the clean one, as an element. DOMPurify, which
 * does the cleaning, and the functions of structure.js are put in place of the two comments below.
 */
(function () {
'use strict';

const words = list => list.split(' ');

/**
 * DOMPurify as a module. Its parameters are the names that it looks for outside itself, where a page's elements have
 * names too; "shadowNode" is left undeclared in one version.
 */
function load(module, exports, define, window, shadowNode) {
/* DOMPurify */
}

const module = { exports: {} };
load(module, module.exports, undefined, {
    document: new DOMParser().parseFromString('', 'text/html'), // without elements whose names hide functions
    DocumentFragment, DOMParser, Element, HTMLFormElement, HTMLTemplateElement, NamedNodeMap, Node, NodeFilter,
}, {});
const purify = module.exports;

const { isLitter, structureOf, dropNames } =
/* structure */;

/** Elements whose content another parser may read in another way, so that something can hide in it. */
const FORBIDDEN = words('math noscript style svg template title');

/** What DOMPurify doesn't know of old pages. "<ALIGN=MIDDLE>" stands in front of each picture of a listing. */
const OLD_ELEMENTS = words('align=middle basefont listing');
const OLD_ATTRIBUTES = words('abbr accesskey axis behavior bordercolor bordercolordark bordercolorlight char charoff ' +
    'charset compact direction frame hspace longdesc lowsrc nohref rules scrollamount scrolldelay target truespeed ' +
    'vspace wrap');

/** Comments are kept, for they mark the parts of a listing, unless there is a tag in them or they are the clipboard's. */
const REFUSED_COMMENT = /<[\w\/!?]|^(Start|End)Fragment$/;
purify.addHook('uponSanitizeElement', (node, data) => {
    if (data.tagName === '#comment')
        data.allowedTags['#comment'] = !REFUSED_COMMENT.test(node.data);
});

/** What would end an element if the quotes around the value were not seen: an attribute with it goes. */
const TAG_END = /<\/|\/>/;

/** Left to DOMPurify, an attribute would lose its place among the others and the blanks around its value. */
purify.addHook('uponSanitizeAttribute', (element, data) => {
    data.keepAttr = !TAG_END.test(data.attrValue);
    data.forceKeepAttr = data.keepAttr && purify.isValidAttribute(element.nodeName, data.attrName, data.attrValue);
});

return (html, withLooks) => {
    const body = purify.sanitize(html, {
        FORBID_TAGS: FORBIDDEN,
        ADD_TAGS: OLD_ELEMENTS.concat('#comment'),
        ADD_ATTR: OLD_ATTRIBUTES,
        ALLOW_UNKNOWN_PROTOCOLS: true, // pictures from the disk; scripts and data are refused all the same
        SANITIZE_DOM: false, // names that hide a page's functions: fields of forms have such, and no script of ours minds
        FORCE_BODY: html.startsWith('<!--'), // the parser puts a comment that comes first in front of the body
        RETURN_DOM: true, // a fragment without tags is read too
    });
    if (withLooks)
        return body;
    return isLitter(html) ? structureOf(body) : dropNames(html, body);
};
})()
