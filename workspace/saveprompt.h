// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

// In the order of the buttons.
enum class SaveAnswer { Save, Discard, Cancel };

// Asks what to do with the changes of a document. Escape cancels, so that nothing is lost.
SaveAnswer askToSave(QWidget *parent, const QString &documentName);
