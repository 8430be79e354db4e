#pragma once

class QPainter;

// Shapes of what pictures of rows and of actions show alike, on a field of 16 by 16.
namespace shapes {

void page(QPainter &painter);
void pages(QPainter &painter);
void folder(QPainter &painter);
void gear(QPainter &painter);

} // namespace shapes
