// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A stage scene seen from above: where each puppet and camera stands and which way it faces,
// read from the texts the author typed. The world's X runs to the right and its Z up the page
// (LithTech's Y is the height). A record whose numbers do not read is listed, never drawn at
// a place made up for it. Built anew from the scene whenever it changes; holds no reference
// to it.

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>

class clsSSF;

// The record a mark or a listed line stands for: its list and its place there.
struct PlanRecord {
    enum Kind { Puppet, Camera };
    Kind kind = Puppet;
    qint16 index = 0;

    friend bool operator==(const PlanRecord&, const PlanRecord&) = default;
};

struct PlanMark {
    PlanRecord record;
    QPointF position; // world X and Z
    // Degrees about the vertical axis: 0 faces +Z (up the page), 90 faces +X (to the right),
    // turning clockwise as seen from above.
    double heading = 0;
    QString name;      // the rig binding's file name, or the camera's name; never empty
    QString height;    // the Y text as typed, when it does not read as 0
    bool main = false; // the scene's main camera
};

// A record that could not be placed, with the reason in a line an author reads.
struct PlanUnplaced {
    PlanRecord record;
    QString text; // "dancer.rbt (puppet 3): no number in X "4o", heading """
};

class StagePlan {
public:
    StagePlan() = default;
    explicit StagePlan(const clsSSF& scene);

    const QList<PlanMark>& Marks() const { return m_marks; }
    const QList<PlanUnplaced>& Unplaced() const { return m_unplaced; }
    // The least rectangle of world X and Z holding every mark (its top is the least Z), of
    // zero size for marks all on one spot; a default rectangle when there are no marks.
    const QRectF& Bounds() const { return m_bounds; }

    // A coordinate or heading as the plan reads it: a number as ReadNumber reads every number
    // of a document ("40", "-2.5", "+1e2"; no comma decimals, "inf" or "nan"), that a LithTech
    // vector can hold (single precision, up to about 3.4e38).
    static bool ReadNumber(const QString& text, double& value);

private:
    void place(PlanRecord record, const QString& name, const QString& x, const QString& y,
               const QString& z, const QString& heading, bool main);

    QList<PlanMark> m_marks;
    QList<PlanUnplaced> m_unplaced;
    QRectF m_bounds;
};
