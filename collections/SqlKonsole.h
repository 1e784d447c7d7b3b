#pragma once
// The SQL console, opened from the table menu and the tool bar: a statement becomes the
// record source of the table or runs as an action query.
#include "shell/Teilbereich.h"

class SqlKonsole : public Teilbereich {
public:
    using Teilbereich::Teilbereich;
    void verbinden() override;

    void MenuSQLabfrage_Click();
};
