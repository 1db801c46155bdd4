#pragma once
// The welcome screen shown after start-up, until the user asks not to see it again.

#include <QDialog>

class Ajustes;
class QCheckBox;

class Form36 : public QDialog {
    Q_OBJECT
public:
    explicit Form36(Ajustes& a, QWidget* padre = nullptr);

    // Whether the settings ask for it at start (Inicio\Presenta is "SI").
    static bool SeMuestra(const Ajustes& a);

protected:
    void done(int r) override;

private:
    Ajustes& a_;
    QCheckBox* Check1;
};
