#include "shell/Generator.h"

#include "platform/RuntimeError.h"
#include "shell/Highlight.h"
#include "source/RichTextBox.h"

void stampGenerator(RichTextBox& box)
{
    const int caret = box.SelStart();
    box.setSelStart(0);
    box.setSelLength(WorkingSelection);
    for (int tag = box.Find("<META content=", 0); tag != -1; tag = box.Find("<META content=", tag + 1)) {
        const int name = box.Find(" name=GENERATOR>", tag);
        if (name == -1) // a torn tag ends the program before anything in it is touched
            throw RuntimeError(ErrorNumber::InvalidPropertyValue);
        box.setSelStart(tag);
        box.setSelLength(name - tag + 1); // up to and with the blank before "name"
        box.setSelText(GeneratorStart);
    }
    box.setSelStart(caret);
}
