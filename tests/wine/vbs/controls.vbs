' The grid and form helpers from a script, with script classes standing for
' the caller's controls: the grid notes every member called on it, in
' order, so the script can check the order the method keeps.
Class MSFlexGrid
    Public Calls
    Public CurrentRow
    Public CurrentCol
    Public Cells
    Public Shown
    Private Sub Class_Initialize()
        CurrentRow = 1
        CurrentCol = 1
        ReDim Cells(3, 2)
    End Sub
    Private Sub Note(name)
        Calls = Calls & name & " "
    End Sub
    Public Property Get Row(): Note "Row": Row = CurrentRow: End Property
    Public Property Let Row(value): Note "Row=" & value: CurrentRow = value: End Property
    Public Property Get Col(): Note "Col": Col = CurrentCol: End Property
    Public Property Let Col(value): Note "Col=" & value: CurrentCol = value: End Property
    Public Property Let Redraw(value): Note "Redraw=" & value: End Property
    Public Property Let CellForeColor(value): Note "CellForeColor=" & value: End Property
    Public Property Let CellFontBold(value): Note "CellFontBold=": End Property
    Public Property Let CellFontName(value): Note "CellFontName=": End Property
    Public Property Let CellFontSize(value): Note "CellFontSize=": End Property
    Public Property Let CellAlignment(value): Note "CellAlignment=" & value: End Property
    Public Property Let CellPictureAlignment(value): Note "CellPictureAlignment=" & value: End Property
    Public Property Set CellPicture(value): Note "CellPicture=": Set Shown = value: End Property
    Public Property Get TextMatrix(r, c): TextMatrix = Cells(r, c) & "": End Property
    Public Property Let TextMatrix(r, c, value): Cells(r, c) = value: End Property
End Class

' The caller's controls by position, walked with Count and Item.
Class Collection
    Public Items
    Public Property Get Count(): Count = UBound(Items) + 1: End Property
    Public Default Property Get Item(i): Set Item = Items(i): End Property
End Class

Class Form
    Public Name
    Public Controls
End Class

Class TextBox
    Public Text
End Class

Dim grid, ficha, uno, dos, controles, diccionario

Set grid = New MSFlexGrid
grid.TextMatrix(2, 1) = "1"
fun.fn_PoneCheckGrid grid, 2, 1
Check "fn_PoneCheckGrid hides the text and shows the ticked box", grid.Calls, _
      "Col Row Col=1 Row=2 Redraw=False CellForeColor=-2147483643 CellFontBold= CellFontName= CellFontSize= " & _
      "CellAlignment=6 CellPicture= CellPictureAlignment=4 Col=1 Row=1 Redraw=True "
Check "the check box comes as a picture", TypeName(grid.Shown), "Picture"
Check "the picture is 13 pixels wide (HIMETRIC)", grid.Shown.Width, CLng(344)

' Trimming every text of a form, over both kinds of collection.
Set uno = New TextBox
uno.Text = "  Ana  "
Set dos = New TextBox
dos.Text = " Luis"
Set controles = New Collection
controles.Items = Array(uno, dos)
Set ficha = New Form
Set ficha.Controls = controles
fun.QuitaEspacios ficha
Check "QuitaEspacios over a collection by position", uno.Text & "|" & dos.Text, "Ana|Luis"

' A collection with an enumerator: For Each walks the dictionary's keys.
uno.Text = " Eva "
dos.Text = "Juan  "
Set diccionario = CreateObject("Scripting.Dictionary")
diccionario.Add uno, 1
diccionario.Add dos, 2
Set ficha.Controls = diccionario
fun.QuitaEspacios ficha
Check "QuitaEspacios over an enumerator", uno.Text & "|" & dos.Text, "Eva|Juan"

Done "controls"
