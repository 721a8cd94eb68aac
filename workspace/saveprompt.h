// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

enum class SaveAnswer { Save, Discard, Cancel };

// Asks what to do with the changes of a document.
SaveAnswer askToSave(QWidget *parent, const QString &documentName);
