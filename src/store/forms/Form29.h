#pragma once
// The splash screen, shown from the start until the board is ready.

#include <QWidget>

class Ajustes;

class Form29 : public QWidget {
    Q_OBJECT
public:
    explicit Form29(Ajustes& ajustes, QWidget* padre = nullptr);

protected:
    void paintEvent(QPaintEvent*) override;
};
