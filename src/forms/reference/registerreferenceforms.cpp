#include "forms/reference/registerreferenceforms.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/reference/referenceform.h"
#include "forms/reference/referencelist.h"

void RegisterReferenceForms(MainFrame &frame)
{
    for (const ReferenceList &list : ReferenceLists()) {
        frame.registerForm(
            {.name = list.formName,
             .factory =
                 [&list, &frame] {
                     return new ReferenceForm(list, frame.forms(), frame.session(),
                                              frame.action(list.menuEntry));
                 },
             .helpTopic = list.helpTopic,
             .addPrompt = FixedWording(list.addPrompt.title, list.addPrompt.text),
             .deletePrompt = FixedWording(list.deletePrompt.title, list.deletePrompt.text),
             .menuEntry = list.menuEntry,
             .printable = true});
    }
}
