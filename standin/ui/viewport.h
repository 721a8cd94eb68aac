// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace standin {

// Where the host would show a scene: an empty ground grid in perspective. It takes no input.
class Viewport : public QWidget
{
public:
    explicit Viewport(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace standin
