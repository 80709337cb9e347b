#pragma once

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <functional>

// Acts on the next modal widget once it shows, so that a test can drive a
// dialog that the code under test opens with exec().
inline void whenModal(std::function<void(QWidget *)> act)
{
    auto *timer = new QTimer;
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
        if (QWidget *modal = QApplication::activeModalWidget()) {
            timer->stop();
            timer->deleteLater();
            act(modal);
        }
    });
    timer->start(20);
}
