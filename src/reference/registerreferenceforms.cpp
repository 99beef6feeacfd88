#include "reference/registerreferenceforms.h"

#include "reference/referenceform.h"
#include "reference/referencelist.h"
#include "shell/formregistry.h"
#include "shell/mainframe.h"

void RegisterReferenceForms(MainFrame &frame)
{
    for (const ReferenceList &list : ReferenceLists()) {
        frame.forms().registerForm(list.formName, FormRegistry::Placement::Child,
                                   [&list, &frame] {
                                       return new ReferenceForm(list, frame.forms(),
                                                                frame.session(),
                                                                frame.action(list.menuEntry));
                                   });
    }
}
