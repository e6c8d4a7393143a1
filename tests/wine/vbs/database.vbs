' The database helpers on a database reached through ODBC (the test server's
' data objects), with script classes as the caller's lists.
Class ComboBox
    ' One member a line: Wine's VBScript compiles no list of them.
    Public Items
    Public Datas
    Public ListIndex
    Public NewIndex
    Public Visible
    Private Sub Class_Initialize()
        Clear
        Visible = True
    End Sub
    Public Sub Clear()
        Items = Array()
        Datas = Array()
        ListIndex = -1
        NewIndex = -1
    End Sub
    Public Sub AddItem(text)
        ReDim Preserve Items(UBound(Items) + 1)
        ReDim Preserve Datas(UBound(Datas) + 1)
        Items(UBound(Items)) = CStr(text)
        Datas(UBound(Datas)) = 0
        NewIndex = UBound(Items)
    End Sub
    Public Property Get ListCount(): ListCount = UBound(Items) + 1: End Property
    Public Property Get List(i): List = Items(i): End Property
    Public Property Get ItemData(i): ItemData = Datas(i): End Property
    Public Property Let ItemData(i, value): Datas(i) = value: End Property
End Class

' The items joined by commas (Wine's VBScript has no Join).
Function Joined(items)
    Dim i
    For i = 0 To UBound(items)
        If i > 0 Then Joined = Joined & ","
        Joined = Joined & items(i)
    Next
End Function

Dim cn, lista, codigos, rs, adjunto, leidos
Set cn = OpenTestDatabase()
cn.Execute "CREATE TABLE clientes (codigo INTEGER, nombre TEXT)"
cn.Execute "INSERT INTO clientes VALUES (7, 'Ana'), (12, 'Luis'), (9, 'María')"

Check "regDevuelveDatoCampoSQL", fun.regDevuelveDatoCampoSQL(cn, "SELECT nombre FROM clientes WHERE codigo = 12"), "Luis"
Check "regUltimoCodigo", fun.regUltimoCodigo(cn, "codigo", "clientes", "codigo < 10"), CLng(10)

Set lista = New ComboBox
Set codigos = New ComboBox
fun.regCargaListaSQL cn, "SELECT codigo, nombre FROM clientes ORDER BY nombre", lista, "nombre", codigos, "codigo"
Check "regCargaListaSQL fills the text list", Joined(lista.Items), "Ana,Luis,María"
Check "regCargaListaSQL fills the code list", Joined(codigos.Items), "7,12,9"
Check "regCargaListaSQL selects the first item", lista.ListIndex, 0
Set lista = New ComboBox
fun.regCargaListaSQL2 cn, "SELECT nombre, codigo FROM clientes ORDER BY codigo", lista, "nombre", "codigo"
Check "regCargaListaSQL2 keeps codes as item data", Joined(lista.Items) & "|" & Joined(lista.Datas), "Ana,María,Luis|7,9,12"

' Binary fields cross the automation boundary as Byte arrays both ways: the
' field's bytes reach the script, go to regGuardaStream, come back from
' regLeeStream and go out again; the runner compares both files with the
' bytes stored. (Wine's TypeName calls every array "Variant()" and its
' UBound refuses a Byte array: VarType tells the element type.)
cn.Execute "CREATE TABLE adjuntos (datos BLOB)"
cn.Execute "INSERT INTO adjuntos VALUES (X'00FF7F80410D0A1A')"
Set rs = CreateObject("ADODB.Recordset")
rs.Open "SELECT datos FROM adjuntos", cn, 3, 1
adjunto = rs.Fields.Item(0).Value
rs.Close
Check "a binary field is a Byte array", VarType(adjunto), vbArray + vbByte
Check "regGuardaStream writes a Byte array", fun.regGuardaStream(adjunto, "C:\telvaro-tests\adjunto.bin"), "C:\telvaro-tests\adjunto.bin"
leidos = fun.regLeeStream("C:\telvaro-tests\adjunto.bin")
Check "regLeeStream reads a Byte array", VarType(leidos), vbArray + vbByte
Check "regGuardaStream writes it again", fun.regGuardaStream(leidos, "C:\telvaro-tests\adjunto-2.bin"), "C:\telvaro-tests\adjunto-2.bin"
cn.Close
Done "database"
