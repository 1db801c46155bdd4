#pragma once
// The tip of quick entries, shown when an income or expense is posted against the money
// subaccount of the previous entry, until the user asks not to see it again.

#include <QDialog>

class Ajustes;
class QCheckBox;

extern const QString MsgAvisoRapido;

class Form64 : public QDialog {
    Q_OBJECT
public:
    explicit Form64(Ajustes& a, QWidget* padre = nullptr);

    // Whether the tip is still wanted (Opciones\AvisoRepe is "True").
    static bool SeMuestra(const Ajustes& a);

    QCheckBox* Check1; // "No ver más esta información"

protected:
    void done(int r) override;

private:
    Ajustes& a_;
};
