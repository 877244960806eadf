<?xml version="1.0"?>
<!-- The pages of a collection as one, for a comparison: a table per class, the records by time. -->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
<xsl:output method="html" encoding="utf-8"/>
<xsl:key name="class" match="INSTANCE" use="@CLASSNAME"/>
<xsl:template match="/">
<html><body>
<xsl:for-each select="//CLASS[key('class', @NAME)]">
<h2><xsl:value-of select="@NAME"/></h2>
<table>
<tr><xsl:for-each select="key('class', @NAME)[1]/PROPERTY"><th><xsl:value-of select="@NAME"/></th></xsl:for-each></tr>
<xsl:for-each select="key('class', @NAME)">
<xsl:sort select="PROPERTY[@NAME = 'MessageTimestamp']/VALUE"/>
<tr><xsl:for-each select="PROPERTY"><td><xsl:value-of select="VALUE"/></td></xsl:for-each></tr>
</xsl:for-each>
</table>
</xsl:for-each>
</body></html>
</xsl:template>
</xsl:stylesheet>
