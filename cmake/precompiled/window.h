// What most sources of the window include.
#pragma once

#include <QAbstractListModel>
#include <QImage>
#include <QObject>
#include <QPainter>
#include <QQmlEngine>
#include <QQmlPropertyMap>
#include <QQuickItem>
#include <QQuickWindow>
#include <QString>
#include <QVariant>

#include "standard.h"
