// Part 2.1: the operations of the rig binding document on its two record lists.
// Part 2.2 (Load and Save) lives in clsRBT_format.cpp.

#include "rig/clsRBT.h"

#include "foundation/Limits.h"

#include <utility>

namespace {

// Design 7: an index out of range reads no record and changes nothing.
template <typename List> bool inRange(const List& list, qint16 index) {
    return index >= 0 && index < list.size();
}

} // namespace

void clsRBT::AddJoint(std::shared_ptr<clsJoint> j) {
    // Design 5: a list at 32767 records takes no more. A null record is no record.
    if (!j || m_joints.size() >= Limits::MaxRecords)
        return;
    // Part 2.1 step 1: the Id is the number of joints before the addition.
    j->Id = QString::number(m_joints.size());
    // Step 2: the very object is kept, so edits through it reach the document.
    m_joints.append(std::move(j));
}

void clsRBT::DeleteJoint(qint16 i) {
    if (!inRange(m_joints, i))
        return;
    // Part 2.1 step 1: remove the record.
    m_joints.removeAt(i);
    // Step 2: every record from place i on takes its new place as its Id.
    for (qsizetype place = i; place < m_joints.size(); ++place)
        m_joints[place]->Id = QString::number(place);
}

std::shared_ptr<clsJoint> clsRBT::Joints(qint16 index) const {
    return inRange(m_joints, index) ? m_joints[index] : nullptr;
}

qint16 clsRBT::NumJoints() const {
    return static_cast<qint16>(m_joints.size());
}

void clsRBT::AddAnimation(std::shared_ptr<clsAnimation> a) {
    if (!a || m_animations.size() >= Limits::MaxRecords)
        return;
    // Part 2.1: the Id stays as the caller set it; it is the model's index.
    m_animations.append(std::move(a));
}

void clsRBT::DeleteAnimation(qint16 i) {
    if (!inRange(m_animations, i))
        return;
    // Part 2.1: the other records keep their Ids, which refer to the model.
    m_animations.removeAt(i);
}

std::shared_ptr<clsAnimation> clsRBT::Animations(qint16 index) const {
    return inRange(m_animations, index) ? m_animations[index] : nullptr;
}

qint16 clsRBT::NumAnimations() const {
    return static_cast<qint16>(m_animations.size());
}
