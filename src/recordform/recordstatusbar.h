#pragma once

#include <QList>
#include <QStatusBar>

class QLabel;
class QTimer;

// The status bar of a record form: text panels (what the form is doing, which record of how
// many) and panels that look after themselves: the toggle keys, shown dimmed while off, and
// the date and the time. Panels are numbered from 1, in the order given.
class RecordStatusBar : public QStatusBar
{
    Q_OBJECT

public:
    enum class Panel { Text, CapsLock, NumLock, Insert, Date, Time };

    explicit RecordStatusBar(const QList<Panel> &panels, QWidget *parent = nullptr);

    void setPanelText(int number, const QString &text);
    QString panelText(int number) const;
    // The panel's label: a toggle-key panel is enabled exactly while its key is on.
    QLabel *panel(int number) const;

private:
    void refreshSelfPanels();

    QList<Panel> m_kinds;
    QList<QLabel *> m_panels;
    QTimer *m_clock;
};
