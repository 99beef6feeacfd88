// Browsing the books: the position, the move buttons and the lookup combo.

#include "forms/books/frmbookmaintenance.h"

#include "data/datacontrol.h"
#include "data/recordsetmodel.h"
#include "recordform/keyfilters.h"
#include "recordform/recordformcontroller.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmbookmaintenance.h"

#include <QCheckBox>
#include <QDataWidgetMapper>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

void FrmBookMaintenance::setUpLookup()
{
    ui->dboBookLkup->setRowSource(m_lookupRows, u"bookdescription"_s, u"BookID"_s);
    // A long catalogue is not measured item by item to size the combo.
    ui->dboBookLkup->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    InstallKeyFilter(ui->dboBookLkup, KeyFilter::PickOnly);
}

void FrmBookMaintenance::showLookupText(const QString &description)
{
    if (ui->dboBookLkup->currentText() == description)
        return;
    ui->dboBookLkup->setCurrentIndex(ui->dboBookLkup->findText(description));
}

void FrmBookMaintenance::showCurrentRow(int row)
{
    if (row >= 0) {
        m_mapper->setCurrentIndex(row);
        return;
    }
    // No current book: nothing of the last one stays on show.
    for (int section = 0; section < m_bookRows->columnCount(); ++section) {
        QWidget *widget = m_mapper->mappedWidgetAt(section);
        if (auto *box = qobject_cast<QLineEdit *>(widget))
            box->clear();
        else if (auto *notes = qobject_cast<QPlainTextEdit *>(widget))
            notes->clear();
        else if (auto *check = qobject_cast<QCheckBox *>(widget))
            check->setChecked(false);
        else if (auto *list = qobject_cast<QComboBox *>(widget))
            list->setCurrentIndex(-1);
    }
}

// A pick from the lookup's list (and only from its list) brings that book up.
void FrmBookMaintenance::on_dboBookLkup_activated(int row)
{
    RunHandler([&] {
        m_controller->submitEdits();
        Recordset *rs = books();
        rs->moveFirst();
        Recordset *lookup = adoBookLkup->recordset();
        lookup->moveTo(row);
        rs->find(u"BookID = "_s + lookup->value(u"BookID"_s).toString(), 0, true);
        m_controller->RefreshPosition();
    });
}

void FrmBookMaintenance::onBookMoved()
{
    RunHandler([this] {
        Recordset *rs = books();
        if (!rs || rs->bof() || rs->eof() || rs->editMode() == Recordset::EditMode::Add)
            return;
        loadLinks(rs->value(u"bookid"_s).toString());
    });
}

// Hung on the topic list's record set, not the book's: writing a book does not run it.
void FrmBookMaintenance::fillEmptyNumbersWithZero()
{
    for (QLineEdit *box : {ui->txtPages, ui->txtWhenPublished, ui->txtWhenSold, ui->txtMaps,
                           ui->txtPlans, ui->txtIllustrations, ui->txtWhenPurchased}) {
        if (box->text().isEmpty())
            box->setText(u"0"_s);
    }
}
