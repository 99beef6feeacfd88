#include "forms/printing/showreport.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "forms/printing/reportwindow.h"

#include <optional>

QWidget *ShowReportWindow(MainFrame &frame, ReportDocument document)
{
    const QString name = document.definition.name;
    // The window takes the rows when it is made; nothing keeps them once it has gone.
    auto loaded = std::make_shared<std::optional<ReportDocument>>(std::move(document));
    Session &session = frame.session();
    frame.forms().registerForm(name, FormRegistry::Placement::Child, [loaded, &session] {
        auto *window = new ReportWindow(session, std::move(**loaded));
        loaded->reset();
        window->resize(760, 680);
        return window;
    });
    return frame.forms().show(name);
}
