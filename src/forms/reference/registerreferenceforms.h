#pragma once

class MainFrame;

// Makes frmAuthor, frmTopic and frmPublisher known to the frame by name.
void RegisterReferenceForms(MainFrame &frame);
