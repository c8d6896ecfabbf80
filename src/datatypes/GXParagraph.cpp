#include <KTRCL_DataTypes/GXParagraph.h>

// Defined here, and not in the header, so that the tables of virtual operations exist once.

GXParagraphList::GXParagraphList() = default;

GXParagraphList::~GXParagraphList() = default;

GXParagraph::GXParagraph() = default;

GXParagraph::~GXParagraph() = default;
