#pragma once

class FrmWeb;

/// Enables the region buttons of the main window for the parts that the document's design style has, and
/// disables them for a document without a style marker. Style markers are looked for from the selection on,
/// and one at the very start of the text doesn't count. The caret stays. False: no style marker was found.
bool updateStyleButtons(FrmWeb& main);
