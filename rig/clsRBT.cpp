// SPDX-License-Identifier: GPL-3.0-or-later
// The rig binding's operations on its two record lists; RecordList holds the steps. Its `.rbt`
// file is read and written in clsRBT_format.cpp.

#include "rig/clsRBT.h"

// AddJoint numbers the joint by the count before it; DeleteJoint renumbers the joints behind.
void clsRBT::AddJoint(const std::shared_ptr<clsJoint>& j) { m_joints.Add(j); }
void clsRBT::DeleteJoint(qint16 i) { m_joints.Delete(i); }
std::shared_ptr<clsJoint> clsRBT::Joints(qint16 index) const { return m_joints.At(index); }
qint16 clsRBT::NumJoints() const { return m_joints.Count(); }

// An animation's Id is its index in the model: neither AddAnimation nor DeleteAnimation
// touches it.
void clsRBT::AddAnimation(const std::shared_ptr<clsAnimation>& a) { m_animations.Add(a); }
void clsRBT::DeleteAnimation(qint16 i) { m_animations.Delete(i); }
std::shared_ptr<clsAnimation> clsRBT::Animations(qint16 index) const
{
    return m_animations.At(index);
}
qint16 clsRBT::NumAnimations() const { return m_animations.Count(); }
