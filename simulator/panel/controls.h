// Sliders, boxes and fields that do the common inputs.
#pragma once

#include "target.h"

#include <QHash>
#include <QWidget>

namespace mcupanel {

class Controls : public QWidget {
public:
    explicit Controls(Target &target);

private:
    struct Control;
    static const Control all[];

    QWidget *made(const Control &control);
    void send(const Control &control, int value);

    Target &m_target;
    QHash<QString, QVariantList> m_values; ///< as each input was sent last, or will be first
};

} // namespace mcupanel
