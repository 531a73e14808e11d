' SPDX-License-Identifier: MPL-2.0
Option Explicit

' The peer in LibreOffice Basic: what a user would write to do the add-in's work.
'
' Measure selects by fill and by line as the first shape has it, walks the drawing shapes of the
' document and sorts them by fill, gives a quarter of the fills a new colour, and returns how many
' milliseconds each took, as JSON, or else the error. Nothing is read that is not needed: the kind
' of fill first, then only what that kind has, and a structure once. The selections come first
' because each would be a command of its own: no shape is held from a walk before. A change is a
' complete one: the theme's colour, which would be stored instead of the new one, is removed, and the
' document counts as modified. Only a step of the Undo list is beyond Basic, whose listeners have no
' attributes, and so no title; the figures do not include one.

' The values of com.sun.star.drawing.FillStyle; its names would be looked up at each use.
Const FILL_NONE = 0
Const FILL_SOLID = 1
Const FILL_GRADIENT = 2
Const FILL_HATCH = 3
Const FILL_BITMAP = 4

Const GROUP_TYPE = "com.sun.star.drawing.GroupShape"
Const FRAME_TYPE = "FrameShape"
Const LINE_TYPE = "com.sun.star.drawing.LineShape"
Const CONNECTOR_TYPE = "com.sun.star.drawing.ConnectorShape"
Const CONTROL_TYPE = "com.sun.star.drawing.ControlShape"

Const MIXED = "mixed"
Const OPAQUE = "/0"
Const NEW_COLOR = &H0070C0
Const NO_THEME = -1

Private mShapes() As Object   ' all leaf shapes, in order
Private mFillOf() As Long     ' the number of each one's fill
Private mShapeCount As Long
Private mFillNumbers As Object ' the number of each fill by its key
Private mFillStyles() As Long
Private mIsOpaque() As Boolean ' whether a fill has no transparency
Private mFillCount As Long

Function Measure(oDocument As Object) As String
	Dim nStart As Long, nScan As Long, nApply As Long, nApplied As Long
	Dim sSelections As String
	On Error Goto Failed

	' The selections need a window; the rest is measured with one and without.
	If Not IsHidden(oDocument) Then sSelections = MeasureSelections(oDocument)

	nStart = GetSystemTicks()
	Scan(oDocument)
	nScan = GetSystemTicks() - nStart

	nStart = GetSystemTicks()
	nApplied = Apply(oDocument)
	nApply = GetSystemTicks() - nStart

	Measure = "{" & sSelections & _
		Member("scan_ms", nScan) & ", " & Member("apply_ms", nApply) & ", " & _
		Member("fills", mFillCount) & ", " & Member("shapes", mShapeCount) & ", " & _
		Member("applied", nApplied) & "}"
	Erase mShapes
	mFillNumbers = Nothing
	Exit Function
Failed:
	Measure = "{""error"": """ & OneLine("Line " & Erl & ": " & Error) & """}"
End Function

Private Function MeasureSelections(oDocument As Object) As String
	Dim nStart As Long
	Dim nFill As Long, nHostFill As Long, nSelectedFill As Long
	Dim nLine As Long, nHostLine As Long, nSelectedLine As Long

	SelectSample(oDocument)
	nStart = GetSystemTicks()
	nHostFill = SelectSame(oDocument, True, nSelectedFill)
	nFill = GetSystemTicks() - nStart

	SelectSample(oDocument)
	nStart = GetSystemTicks()
	nHostLine = SelectSame(oDocument, False, nSelectedLine)
	nLine = GetSystemTicks() - nStart

	SelectSample(oDocument)
	MeasureSelections = _
		Member("select_fill_ms", nFill) & ", " & Member("select_line_ms", nLine) & ", " & _
		Member("host_select_ms", nHostFill) & ", " & _
		Member("host_select_line_ms", nHostLine) & ", " & _
		Member("selected_fill", nSelectedFill) & ", " & _
		Member("selected_line", nSelectedLine) & ", "
End Function

Private Function IsHidden(oDocument As Object) As Boolean
	Dim aArguments, i As Long
	aArguments = oDocument.Args
	For i = 0 To UBound(aArguments)
		If aArguments(i).Name = "Hidden" Then IsHidden = aArguments(i).Value
	Next
End Function

Private Function OneLine(ByVal sText As String) As String
	sText = Replace(Replace(sText, Chr(13), " "), Chr(10), " ")
	OneLine = Replace(Replace(sText, "\", "/"), """", "'")
End Function

Private Function Member(sName As String, nValue As Long) As String
	Member = """" & sName & """: " & nValue
End Function

' The scan

Private Sub Scan(oDocument As Object)
	Dim oShapes As Object
	ReDim mShapes(1023)
	ReDim mFillOf(1023)
	ReDim mFillStyles(63)
	ReDim mIsOpaque(63)
	mShapeCount = 0
	mFillCount = 0
	mFillNumbers = com.sun.star.container.EnumerableMap.create("string", "long")
	oShapes = oDocument.DrawPage.createEnumeration()
	Do While oShapes.hasMoreElements()
		Collect(oShapes.nextElement())
	Loop
End Sub

Private Sub Collect(oShape As Object)
	Dim sType As String, i As Long, nStyle As Long
	sType = oShape.ShapeType
	If sType = GROUP_TYPE Then
		For i = 0 To oShape.Count - 1
			Collect(oShape.getByIndex(i))
		Next
	ElseIf sType <> FRAME_TYPE Then
		If mShapeCount > UBound(mShapes) Then
			ReDim Preserve mShapes(2 * mShapeCount - 1)
			ReDim Preserve mFillOf(2 * mShapeCount - 1)
		End If
		mShapes(mShapeCount) = oShape
		mFillOf(mShapeCount) = FillNumber(FillKey(oShape, sType, nStyle), nStyle)
		mShapeCount = mShapeCount + 1
	End If
End Sub

Private Function FillNumber(sKey As String, nStyle As Long) As Long
	If mFillNumbers.containsKey(sKey) Then
		FillNumber = mFillNumbers.get(sKey)
	Else
		mFillNumbers.put(sKey, CreateUnoValue("long", mFillCount))
		If mFillCount > UBound(mFillStyles) Then
			ReDim Preserve mFillStyles(2 * mFillCount - 1)
			ReDim Preserve mIsOpaque(2 * mFillCount - 1)
		End If
		mFillStyles(mFillCount) = nStyle
		mIsOpaque(mFillCount) = (Right(sKey, 2) = OPAQUE)
		FillNumber = mFillCount
		mFillCount = mFillCount + 1
	End If
End Function

Private Function FillKey(oShape As Object, sType As String, nStyle As Long) As String
	nStyle = FILL_NONE
	If sType = LINE_TYPE Or sType = CONNECTOR_TYPE Or sType = CONTROL_TYPE Then
		FillKey = "none"
		Exit Function
	End If
	nStyle = oShape.FillStyle
	Select Case nStyle
	Case FILL_SOLID
		FillKey = "s" & oShape.FillColor & Opacity(oShape)
	Case FILL_GRADIENT
		FillKey = "g" & GradientKey(oShape.FillGradient) & Opacity(oShape)
	Case FILL_HATCH
		FillKey = "h" & HatchKey(oShape) & Opacity(oShape)
	Case FILL_BITMAP
		FillKey = "b" & oShape.FillBitmapName & "," & oShape.FillBitmapMode & Opacity(oShape)
	Case Else
		FillKey = "none"
	End Select
End Function

Private Function Opacity(oShape As Object) As String
	Opacity = "/" & oShape.FillTransparence ' OPAQUE, where there is none
	If oShape.FillTransparenceGradientName <> "" Then
		Opacity = Opacity & "/" & GradientKey(oShape.FillTransparenceGradient)
	End If
End Function

Private Function GradientKey(oGradient As Object) As String
	GradientKey = oGradient.Style & "," & oGradient.StartColor & "," & oGradient.EndColor & "," & _
		oGradient.Angle & "," & oGradient.Border & "," & oGradient.XOffset & "," & oGradient.YOffset
End Function

Private Function HatchKey(oShape As Object) As String
	Dim oHatch As Object
	oHatch = oShape.FillHatch
	HatchKey = oHatch.Style & "," & oHatch.Color & "," & oHatch.Distance & "," & oHatch.Angle
	If oShape.FillBackground Then HatchKey = HatchKey & "," & oShape.FillColor
End Function

' The change of fills

Private Function Apply(oDocument As Object) As Long
	Dim i As Long, nFill As Long, nApplied As Long, oShape As Object
	oDocument.lockControllers()
	For i = 0 To mShapeCount - 1
		nFill = mFillOf(i)
		If nFill Mod 4 = 0 Then
			oShape = mShapes(i)
			If mFillStyles(nFill) <> FILL_SOLID Then oShape.FillStyle = FILL_SOLID
			If Not mIsOpaque(nFill) Then
				oShape.FillTransparenceGradientName = ""
				oShape.FillTransparence = 0
			End If
			oShape.FillColor = NEW_COLOR
			' A colour of the theme would be stored instead of the new one.
			If oShape.FillColorTheme <> NO_THEME Then oShape.FillColorTheme = NO_THEME
			nApplied = nApplied + 1
		End If
	Next
	oDocument.unlockControllers()
	' The office takes no change of a shape's properties for one of the document.
	oDocument.setModified(True)
	Apply = nApplied
End Function

' The selections

Private Sub SelectSample(oDocument As Object)
	Dim oShapes As Object
	oShapes = oDocument.DrawPage.createEnumeration()
	oDocument.CurrentController.select(oShapes.nextElement())
	' The user has seen it selected before he runs a command.
	CreateUnoService("com.sun.star.awt.Toolkit").processEventsToIdle()
End Sub

' Selects the top-level shapes that are like the first; returns the time of the select call.
Private Function SelectSame(oDocument As Object, bByFill As Boolean, nSelected As Long) As Long
	Dim oShapes As Object, oShape As Object, oMatches As Object
	Dim sSample As String, sKey As String, nStart As Long
	oMatches = CreateUnoService("com.sun.star.drawing.ShapeCollection")
	oShapes = oDocument.DrawPage.createEnumeration()
	Do While oShapes.hasMoreElements()
		oShape = oShapes.nextElement()
		If bByFill Then sKey = CommonFill(oShape) Else sKey = CommonLine(oShape)
		If sSample = "" Then sSample = sKey
		If sKey = sSample Then oMatches.add(oShape)
	Loop
	nSelected = oMatches.Count
	nStart = GetSystemTicks()
	oDocument.CurrentController.select(oMatches)
	SelectSame = GetSystemTicks() - nStart
End Function

' The fill of a shape; of a group the one that all members have.
Private Function CommonFill(oShape As Object) As String
	Dim sType As String, sKey As String, nStyle As Long, i As Long
	sType = oShape.ShapeType
	If sType = FRAME_TYPE Then
		CommonFill = "frame"
	ElseIf sType <> GROUP_TYPE Then
		CommonFill = FillKey(oShape, sType, nStyle)
	Else
		For i = 0 To oShape.Count - 1
			sKey = CommonFill(oShape.getByIndex(i))
			If i > 0 And sKey <> CommonFill Then sKey = MIXED
			CommonFill = sKey
			If sKey = MIXED Then Exit Function
		Next
	End If
End Function

' The colour of a shape's line; of a group the one that all members have.
Private Function CommonLine(oShape As Object) As String
	Dim sType As String, sKey As String, i As Long
	sType = oShape.ShapeType
	If sType = FRAME_TYPE Then
		CommonLine = "frame"
	ElseIf sType <> GROUP_TYPE Then
		If oShape.LineStyle = 0 Then CommonLine = "none" Else CommonLine = oShape.LineColor
	Else
		For i = 0 To oShape.Count - 1
			sKey = CommonLine(oShape.getByIndex(i))
			If i > 0 And sKey <> CommonLine Then sKey = MIXED
			CommonLine = sKey
			If sKey = MIXED Then Exit Function
		Next
	End If
End Function
