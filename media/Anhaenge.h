#pragma once
// The files a Carrier carries beside its music, booklets as PDF, videos and others: the
// list in the record's eBook field, cboEbook with the files found, and the buttons that
// add, delete and open one.
#include "shell/Teilbereich.h"

#include <QString>

class Anhaenge : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    // Fills cboEbook from txtEbook with the files that exist, and counts them in Bez(11).
    void eBookListe();
    void imgEbookOpen_Click();
    void imgEbookKill_Click();
    void imgEbookPlay_Click();

protected:
    // The apostrophe key does nothing in the list, as in every field of the record.
    bool eventFilter(QObject* objekt, QEvent* ereignis) override;

private:
    // The dialog's last place, empty until the first file is added.
    QString EbookPfad;
};
