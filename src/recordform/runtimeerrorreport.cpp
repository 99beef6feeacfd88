#include "recordform/runtimeerrorreport.h"

#include "data/providererror.h"
#include "data/runtimeerror.h"
#include "recordform/msgbox.h"

using namespace Qt::StringLiterals;

void ReportRuntimeError(int number, const QString &description)
{
    MsgBox(u"Run-time error '"_s + QString::number(number) + u"':\r\n\r\n"_s + description,
           Vb::OKOnly | Vb::Critical, u"prjQuireshelf"_s);
}

void RunHandler(const std::function<void()> &handler)
{
    try {
        handler();
    } catch (const RuntimeError &error) {
        ReportRuntimeError(error.number, error.description);
    } catch (const ProviderError &error) {
        ReportRuntimeError(error.number, error.description);
    }
}
