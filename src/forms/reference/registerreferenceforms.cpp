#include "forms/reference/registerreferenceforms.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/reference/referenceform.h"
#include "forms/reference/referencelist.h"

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
