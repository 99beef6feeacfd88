#include "reports/reportdefinition.h"

#include "data/providererror.h"

using namespace Qt::StringLiterals;

QRectF ReportDefinition::printableRect() const
{
    return QRectF(QPointF(0, 0), pageSize).marginsRemoved(margins);
}

int ReportDefinition::sectionIndex(const QString &name) const
{
    for (qsizetype i = 0; i < sections.size(); ++i) {
        if (sections[i].name.compare(name, Qt::CaseInsensitive) == 0)
            return int(i);
    }
    return -1;
}

int ReportDefinition::sectionIndex(SectionKind kind) const
{
    for (qsizetype i = 0; i < sections.size(); ++i) {
        if (sections[i].kind == kind)
            return int(i);
    }
    return -1;
}

ReportControl *ReportDefinition::control(const QString &sectionName, const QString &controlName)
{
    const int section = sectionIndex(sectionName);
    if (section < 0)
        return nullptr;
    for (ReportControl &control : sections[section].controls) {
        if (control.name.compare(controlName, Qt::CaseInsensitive) == 0)
            return &control;
    }
    return nullptr;
}

ReportControl &ReportDefinition::controlAt(int sectionNumber, int controlNumber)
{
    if (sectionNumber < 1 || sectionNumber > sections.size()
        || controlNumber < 1 || controlNumber > sections[sectionNumber - 1].controls.size()) {
        throw ProviderError::general(ProviderErrorNumber::ItemNotFound,
                                     u"Item cannot be found in the collection corresponding to "
                                     "the requested name or ordinal."_s);
    }
    return sections[sectionNumber - 1].controls[controlNumber - 1];
}

void ReportDefinition::applyPriceFormat(const QString &priceFormat)
{
    for (const ControlAddress &box : std::as_const(priceBoxes))
        controlAt(box.section, box.control).format = priceFormat;
}

bool ReportDefinition::hasPriceFormat(const QString &priceFormat)
{
    for (const ControlAddress &box : std::as_const(priceBoxes)) {
        if (controlAt(box.section, box.control).format != priceFormat)
            return false;
    }
    return true;
}
